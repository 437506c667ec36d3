// What a table shows, as plain lists of titles.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile::toolkit {

// Data source and delegate of a table. Writes down what it is asked for and told: "row [1,0]",
// "header 1", "tap [1,0]".
class FakeTableRows final : public TableViewDataSource, public TableViewDelegate {
 public:
  static constexpr const char* kIdentifier = "row";

  struct Section {
    std::vector<std::string> titles;
    std::shared_ptr<View> header;
    double headerHeight = 0;
    double footerHeight = 0;
  };
  std::vector<Section> sections;
  std::vector<std::string> asked;
  bool rowsAreEnabled = true;
  std::vector<const TableViewCell*> cells;  // in the order in which they were handed out
  std::vector<std::string> titlesBefore;    // what each showed when it was; "": nothing yet

  std::int64_t numberOfSectionsInTableView(const TableView& /*table*/) override {
    return static_cast<std::int64_t>(sections.size());
  }
  std::int64_t tableViewNumberOfRowsInSection(const TableView& /*table*/,
                                              std::int64_t section) override {
    return static_cast<std::int64_t>(at(section).titles.size());
  }
  std::shared_ptr<TableViewCell> tableViewCellForRowAtIndexPath(TableView& table,
                                                                IndexPath path) override {
    asked.push_back("row " + inWords(path));
    auto cell = table.dequeueReusableCell(kIdentifier, path);
    cells.push_back(cell.get());
    Label& label = cell->textLabel();
    titlesBefore.push_back(label.text ? label.text->string() : "");
    label.text = makeText(at(path.section).titles.at(static_cast<std::size_t>(path.row)));
    cell->userInteractionEnabled = rowsAreEnabled;
    return cell;
  }
  double tableViewHeightForHeaderInSection(const TableView& /*table*/,
                                           std::int64_t section) override {
    return at(section).headerHeight;
  }
  std::shared_ptr<View> tableViewViewForHeaderInSection(const TableView& /*table*/,
                                                        std::int64_t section) override {
    asked.push_back("header " + std::to_string(section));
    return at(section).header;
  }
  double tableViewHeightForFooterInSection(const TableView& /*table*/,
                                           std::int64_t section) override {
    return at(section).footerHeight;
  }
  void tableViewDidSelectRowAtIndexPath(TableView& /*table*/, IndexPath path) override {
    asked.push_back("tap " + inWords(path));
  }

 private:
  static std::string inWords(IndexPath path) {
    return "[" + std::to_string(path.section) + "," + std::to_string(path.row) + "]";
  }
  // A batch may name sections that there are not.
  const Section& at(std::int64_t section) const {
    static const Section none;
    const auto place = static_cast<std::size_t>(section);
    return place < sections.size() ? sections[place] : none;
  }
};

// The titles of a section's rows, as the table shows them; "-" for none.
inline std::vector<std::string> titlesOf(const TableView& table, std::int64_t section) {
  std::vector<std::string> titles;
  for (const TableView::Row& row : table.rowsOfSection(section)) {
    titles.push_back(row.title ? row.title->string() : "-");
  }
  return titles;
}

}  // namespace wifi_profile::toolkit
