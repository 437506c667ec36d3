#include "app/terminal/PickerFrame.h"

#include <algorithm>

namespace wifi_profile::terminal {

using toolkit::IndexPath;
using toolkit::TableView;

namespace {

constexpr const char* kChosenImage = "blueCheckMark";
constexpr int kHeaderColumn = 1;
constexpr int kChosenColumn = 2;
constexpr int kNameColumn = 4;

// Returns the text of a header while its spinner runs: header and status, or only the status if
// both do not fit.
Glyphs spinnerText(const Look& look, const Glyphs& header, unsigned spinnerStep,
                   int availableColumns) {
  const Glyphs wheel = mark(look.marks.spinner[spinnerStep % look.marks.spinner.size()]);
  Glyphs text = header;
  const auto append = [&text](const Glyphs& more) {
    if (!text.empty()) text.push_back({{U' '}, 1});
    text.insert(text.end(), more.begin(), more.end());
  };
  append(wheel);
  append(glyphsOf(app::screenText("SCANNING")));
  if (widthOf(text) > availableColumns) {
    text = wheel;
    append(glyphsOf(app::screenText("SCANNING")));
  }
  return text;
}

class ListPainter {
 public:
  ListPainter(Frame& frame, const Look& look, const Shown& shown, const TerminalState& state)
      : frame_(frame),
        look_(look),
        table_(*shown.content.table),
        emptyList_(shown.emptyList),
        state_(state),
        lines_(linesOf(table_, hasSpacing(look.extent))),
        height_(bodyLines(look.extent)),
        first_(firstLineShown(lines_, state.list, height_)) {}

  void paint() const {
    for (std::size_t section = 0; section < lines_.sections.size(); ++section) {
      paintSection(static_cast<std::int64_t>(section), lines_.sections[section]);
    }
    if (lines_.sections.back().note != kNoLine && !isScanning(table_)) paintReason();
    putScrollMarks(frame_, look_, 1, height_, first_ > 0, first_ + height_ < lines_.count);
  }

 private:
  bool shows(std::int64_t line) const {
    return line != kNoLine && line >= first_ && line < first_ + height_;
  }
  int screenLine(std::int64_t line) const { return static_cast<int>(line - first_) + 1; }
  // The last column is reserved for the scroll marks.
  int availableColumns(int column) const { return look_.extent.columns - 1 - column; }

  void paintSection(std::int64_t section, const ListLines::Section& part) const {
    if (shows(part.header)) paintHeader(section, screenLine(part.header));
    if (shows(part.note)) {
      put(screenLine(part.note), kNameColumn,
          glyphsOf(isScanning(table_) ? app::screenText("SCANNING")
                                      : app::emptyListText(emptyList_.why)),
          Style::dim);
    }
    const std::int64_t begin = std::max(part.firstRow, first_);
    const std::int64_t end = std::min(part.firstRow + part.rows, first_ + height_);
    for (std::int64_t line = begin; line < end; ++line) {
      paintRow({section, line - part.firstRow}, screenLine(line));
    }
  }

  // Draws the reason in the lines below the list.
  void paintReason() const {
    std::int64_t line = lines_.count + (hasSpacing(look_.extent) ? 1 : 0);
    for (Glyphs& text : wrapped(glyphsOf(emptyList_.reason), availableColumns(kNameColumn))) {
      if (shows(line)) put(screenLine(line), kNameColumn, std::move(text), Style::dim);
      ++line;
    }
  }

  void paintHeader(std::int64_t section, int line) const {
    const auto label = headerLabel(table_, section);
    const auto spinner = headerSpinner(table_, section);
    Glyphs text = glyphsOf(label && label->text ? label->text->string() : "");
    if (spinner && spinner->isAnimating()) {
      text = spinnerText(look_, text, state_.spinnerStep, availableColumns(kHeaderColumn));
    }
    put(line, kHeaderColumn, std::move(text), Style::heading);
  }

  void paintRow(IndexPath path, int line) const {
    const auto& row = table_.rowsOfSection(path.section)[static_cast<std::size_t>(path.row)];
    const bool under = path == state_.list.cursor;
    if (under) frame_.fill({line, 0}, look_.extent.columns - 1, Style::cursor);
    const auto styled = [under](Style style) { return under ? Style::cursor : style; };
    if (under) frame_.put({line, 0}, mark(look_.marks.cursor), Style::cursor);
    if (row.image && row.image->name() == kChosenImage) {
      frame_.put({line, kChosenColumn}, mark(look_.marks.chosen), styled(Style::chosen));
    }
    // A longer name would not fit on any terminal.
    constexpr std::size_t kMaxBytes = 4096;
    if (row.title) {
      put(line, kNameColumn, glyphsOf(shortened(row.title->string(), kMaxBytes)),
          styled(Style::plain));
    }
  }

  void put(int line, int column, Glyphs text, Style style) const {
    frame_.put({line, column},
               fitted(std::move(text), availableColumns(column), look_.marks.ellipsis), style);
  }

  Frame& frame_;
  const Look& look_;
  const TableView& table_;
  const app::EmptyList& emptyList_;
  const TerminalState& state_;
  const ListLines lines_;
  const int height_;
  const std::int64_t first_;
};

}  // namespace

void putList(Frame& frame, const Look& look, const Shown& shown, const TerminalState& state) {
  ListPainter(frame, look, shown, state).paint();
}

}  // namespace wifi_profile::terminal
