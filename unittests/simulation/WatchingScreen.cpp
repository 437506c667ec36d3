#include "simulation/WatchingScreen.h"

#include <algorithm>

#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile::simulation {
namespace {

using namespace toolkit::table_event;

std::string textOf(const std::vector<TextRef>& titles) {
  std::string text;
  for (const TextRef& title : titles) text += title ? " \"" + title->string() + "\"" : " (none)";
  return text;
}

std::string textOf(const std::vector<toolkit::IndexPath>& rows) {
  std::string text;
  for (const auto& [section, row] : rows) {
    text += " " + std::to_string(section) + "/" + std::to_string(row);
  }
  return text;
}

bool areSame(const TextRef& one, const TextRef& other) {
  return one == other || equalNames(one, other);
}

bool holds(const std::vector<std::int64_t>& rows, std::size_t row) {
  return std::find(rows.begin(), rows.end(), static_cast<std::int64_t>(row)) != rows.end();
}

bool areDistinctBelow(const std::vector<std::int64_t>& rows, std::size_t end) {
  return std::all_of(rows.begin(), rows.end(), [&](std::int64_t row) {
    return row >= 0 && row < static_cast<std::int64_t>(end) &&
           std::count(rows.begin(), rows.end(), row) == 1;
  });
}

template <class... Cases>
struct Either : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Either(Cases...) -> Either<Cases...>;

}  // namespace

// --- The rows

std::vector<TextRef> WatchingScreen::titlesOfSource(std::size_t section) const {
  Titles titles;
  if (section == 0) {
    if (TextRef name = controller_->inputs()->selectedNetworkName()) titles.push_back(name);
    return titles;
  }
  if (const NetworkListRef list = controller_->filteredWiFiScanResults()) {
    for (const ScanResultRef& network : *list) titles.push_back(network->ssidString());
  }
  titles.push_back(makeText("OTHER"));
  return titles;
}

void WatchingScreen::reread() {
  for (std::size_t i = 0; i < sections_.size(); ++i) sections_[i].shown = titlesOfSource(i);
  scanShown_ = controller_->distinctNetworks().get();
  mayShowSomethingElse_ = false;
}

void WatchingScreen::tableAppeared() {
  if (!checks_) return;
  reread();
  tableChanged_ = true;
}

void WatchingScreen::tableDid(const toolkit::TableEvent& event) {
  std::visit(Either{
                 [&](const Reloaded&) { history_.note([] { return "table: reload"; }); },
                 [&](const BatchBegan&) { history_.note([] { return "table: begin"; }); },
                 [&](const BatchEnded&) { history_.note([] { return "table: end"; }); },
                 [&](const RowsInserted& rows) {
                   history_.note([&] { return "table: insert" + textOf(rows.rows); });
                 },
                 [&](const RowsDeleted& rows) {
                   history_.note([&] { return "table: delete" + textOf(rows.rows); });
                 },
                 [&](const Repaired& repair) {
                   history_.note([&] {
                     return "table: section " + std::to_string(repair.section) + " is repaired";
                   });
                 },
                 [](const auto&) {},
             },
             event);
  if (!checks_ || !controller_) return;
  tableChanged_ = true;
  std::visit(Either{
                 [&](const Reloaded&) { reread(); },
                 [&](const BatchBegan&) { ++openBatches_; },
                 [&](const BatchEnded&) { batchEnded(); },
                 [&](const RowsInserted& rows) { record(rows.rows, true); },
                 [&](const RowsDeleted& rows) { record(rows.rows, false); },
                 [&](const Repaired& repair) { repaired(repair); },
                 [](const auto&) {},
             },
             event);
}

void WatchingScreen::record(const std::vector<toolkit::IndexPath>& rows, bool inserted) {
  history_.require(openBatches_ > 0, [] { return "rows were changed outside a batch"; });
  for (const auto& [number, row] : rows) {
    history_.require(number == 0 || number == 1, [] { return "a row of no section was changed"; });
    Section& section = sections_[number == 0 ? 0 : 1];
    (inserted ? section.inserted : section.deleted).push_back(row);
  }
}

void WatchingScreen::batchEnded() {
  history_.require(openBatches_ > 0, [] { return "a batch ended that had not begun"; });
  if (--openBatches_ > 0) return;
  std::array<Titles, 2> next;
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    Section& section = sections_[i];
    const auto deleted = std::exchange(section.deleted, {});
    const auto inserted = std::exchange(section.inserted, {});
    const Titles source = titlesOfSource(i);
    Titles kept;
    for (std::size_t row = 0; row < section.shown.size(); ++row) {
      if (!holds(deleted, row)) kept.push_back(section.shown[row]);
    }
    if (kept.size() + inserted.size() != source.size() ||
        !areDistinctBelow(deleted, section.shown.size()) ||
        !areDistinctBelow(inserted, source.size())) {
      awaitedRepairs_.insert(static_cast<std::int64_t>(i));
      continue;
    }
    auto nextKept = kept.begin();
    for (std::size_t row = 0; row < source.size(); ++row) {
      next[i].push_back(holds(inserted, row) ? source[row] : *nextKept++);
    }
  }
  if (!awaitedRepairs_.empty()) {
    reread();
    return;
  }
  for (std::size_t i = 0; i < sections_.size(); ++i) sections_[i].shown = std::move(next[i]);
}

void WatchingScreen::checkAfterWork() {
  if (!checks_ || !controller_) return;
  displayWasShown_ = false;
  if (operationsOverlapped_ || chosenBehindTheTable_ || list_.isOdd()) mayShowSomethingElse_ = true;
  if (std::exchange(operationWasShown_, false)) {
    scanShown_ = controller_->distinctNetworks().get();
    if (displays_ + refreshes_ == 0) operationsOverlapped_ = chosenBehindTheTable_ = false;
  }
  if (!std::exchange(tableChanged_, false)) return;
  history_.require(openBatches_ == 0, [] { return "a batch was begun and not ended"; });
  history_.require(awaitedRepairs_.empty(),
                   [] { return "a batch that does not add up was shown"; });
  const auto table = controller_->tableView();
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    Titles shown;
    for (const auto& row : table->rowsOfSection(static_cast<std::int64_t>(i))) {
      shown.push_back(row.title);
    }
    const Titles& expected = sections_[i].shown;
    history_.require(
        std::equal(shown.begin(), shown.end(), expected.begin(), expected.end(), areSame),
        [&] { return "the table shows" + textOf(shown) + ", expected" + textOf(expected); });
  }
  if (displays_ + refreshes_ == 0 && !mayShowSomethingElse_) checkShownAgainstList();
}

// Between two list operations the table shows the list.
void WatchingScreen::checkShownAgainstList() {
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    const Titles& shown = sections_[i].shown;
    const Titles list = titlesOfSource(i);
    history_.require(
        std::equal(shown.begin(), shown.end(), list.begin(), list.end(), areSame),
        [&] { return "the table shows" + textOf(shown) + " for a list of" + textOf(list); });
  }
}

// --- Batches that do not add up

// One list operation at a time is what the rows of a batch are reckoned with.
void WatchingScreen::operationBegan() {
  if (displays_ + refreshes_ > 1) operationsOverlapped_ = true;
}

void WatchingScreen::displayBegan() {
  ++displaysEver_;
  ++displays_;
  operationBegan();
}

void WatchingScreen::refreshBegan() {
  history_.note([] { return "screen: pulled to refresh"; });
  ++refreshes_;
  operationBegan();
}

void WatchingScreen::refreshWasInstalled() {
  history_.note([] { return "screen: a refresh control is installed"; });
  --displays_;
  operationWasShown_ = displayWasShown_ = true;
}

void WatchingScreen::refreshEnded() {
  history_.note([] { return "screen: the refresh has ended"; });
  --refreshes_;
  operationWasShown_ = true;
}

void WatchingScreen::choiceComes() {
  if (!checks_ || !controller_) return;
  const bool hasName = controller_->inputs()->selectedNetworkName() != nullptr;
  const bool showsName = !sections_[0].shown.empty();
  if (controller_->distinctNetworks().get() != scanShown_ || hasName != showsName) {
    chosenBehindTheTable_ = true;
  }
}

bool WatchingScreen::repairIsAccepted(const Repaired& repair) const {
  // A notification that reports power on shows the list again: every network is inserted once more
  // into a table that has them.
  if (displayWasShown_ && displaysEver_ > 1 && repair.section == 1) return true;
  // Such a notification during a scan has two operations change the list, each reckoning with its
  // own rows before.
  if (operationsOverlapped_) return true;
  // A choice between the end of a scan, in the background, and the work that shows its list: the
  // rows of the choice are those of the list, not those on the screen. Likewise a choice when the
  // first scan has selected the joined network and the table does not show it yet.
  if (chosenBehindTheTable_) return true;
  // The names of the list and of its dictionary are not the same.
  return list_.isOdd() && repair.section == 1;
}

void WatchingScreen::repaired(const Repaired& repair) {
  history_.require(awaitedRepairs_.erase(repair.section) > 0,
                   [] { return "a batch that adds up was repaired"; });
  history_.require(repairIsAccepted(repair), [&] {
    return "section " + std::to_string(repair.section) +
           " was repaired: " + std::to_string(repair.before) + " rows, -" +
           std::to_string(repair.deleted) + " +" + std::to_string(repair.inserted) + ", expected " +
           std::to_string(repair.expected);
  });
}

// --- The rest

void WatchingScreen::progressWasSet(const toolkit::ProgressView& progressView) {
  const float progress = progressView.progress();
  history_.note([&] { return "screen: progress " + std::to_string(progress); });
  history_.require(progress >= progress_ && progress <= 1,
                   [] { return "the progress went back or beyond the end"; });
  progress_ = progress;
}

void WatchingScreen::alertWasPresented(const toolkit::Alert& alert) {
  history_.note([&] { return "screen: asks " + alert.message(); });
}

}  // namespace wifi_profile::simulation
