// The positions of the headers and rows of a table, and its header views.

#include <algorithm>

#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile::toolkit {

void TableView::readHeights() {
  const auto delegate = delegate_.lock();
  if (!delegate) return;
  for (std::int64_t index = 0; index < numberOfSections(); ++index) {
    Section& section = sections_[static_cast<std::size_t>(index)];
    section.headerHeight = delegate->tableViewHeightForHeaderInSection(*this, index);
    const double footer = delegate->tableViewHeightForFooterInSection(*this, index);
    section.footerHeight = footer == kAutomaticDimension ? kFooterHeight : footer;
  }
  layOutHeaders();
  const double lastOffset = contentHeight() + contentInset_.bottom - frame().size.height;
  contentOffset_ = std::max(std::min(contentOffset_, lastOffset), -contentInset_.top);
}

void TableView::askForHeaders() {
  for (std::int64_t section = 0; section < numberOfSections(); ++section) askForHeader(section);
}

void TableView::askForHeader(std::int64_t index) {
  const auto delegate = delegate_.lock();
  if (!delegate) return;
  Section& section = sections_[static_cast<std::size_t>(index)];
  const auto before =
      std::exchange(section.header, delegate->tableViewViewForHeaderInSection(*this, index));
  if (before == section.header) return;
  if (before) before->removeFromSuperview();
  if (section.header) addSubview(section.header);
}

void TableView::scrollHeaderAwayAndBack(std::int64_t section) {
  checkMainThread("TableView::scrollHeaderAwayAndBack");
  if (section < 0 || section >= numberOfSections()) return;
  askForHeader(section);
  layOutHeaders();
}

std::shared_ptr<View> TableView::headerViewOfSection(std::int64_t section) const {
  const bool there = section >= 0 && section < numberOfSections();
  return there ? sections_[static_cast<std::size_t>(section)].header : nullptr;
}

void TableView::layOutHeaders() {
  for (std::int64_t index = 0; index < numberOfSections(); ++index) {
    const auto header = headerViewOfSection(index);
    if (!header) continue;
    header->setFrame(rectOfHeader(index));
    header->layoutSubviews();  // its margin also depends on the table
  }
}

double TableView::topOf(std::int64_t section) const {
  double top = 0;
  for (std::int64_t index = 0; index < section; ++index) {
    const Section& before = sections_[static_cast<std::size_t>(index)];
    top += before.headerHeight + kRowHeight * static_cast<double>(before.rows.size()) +
           before.footerHeight;
  }
  return top;
}

Rect TableView::rectOfHeader(std::int64_t section) const {
  const Section& wanted = sections_.at(static_cast<std::size_t>(section));
  return {{0, topOf(section)}, {frame().size.width, wanted.headerHeight}};
}

Rect TableView::rectOfRow(IndexPath path) const {
  const Section& section = sections_.at(static_cast<std::size_t>(path.section));
  const double top =
      topOf(path.section) + section.headerHeight + kRowHeight * static_cast<double>(path.row);
  return {{0, top}, {frame().size.width, kRowHeight}};
}

double TableView::contentHeight() const { return topOf(numberOfSections()); }

}  // namespace wifi_profile::toolkit
