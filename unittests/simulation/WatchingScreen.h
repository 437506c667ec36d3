// Holds the table to its batches, and batches to adding up.
#pragma once

#include <array>
#include <set>
#include <vector>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "runtime/NoScreen.h"
#include "simulation/History.h"
#include "simulation/ListWatch.h"

namespace wifi_profile::simulation {

// Keeps rows of its own: what was shown before, plus what each batch says. Main thread, but for
// `operations`, which is asked in virtual time by whoever is in turn.
class WatchingScreen final : public runtime::NoScreen {
 public:
  // Both must outlive the screen.
  WatchingScreen(History& history, const ListWatch& list) : history_(history), list_(list) {}

  // Whose table it is; null: nobody's any more.
  void watch(const WiFiProfileViewController* controller) { controller_ = controller; }
  // Without checks it only writes the history.
  void checkNothing() { checks_ = false; }

  void tableAppeared();
  // The first scan, or one that a power notification has begun.
  void displayBegan();
  // The user is about to choose a network.
  void choiceComes();
  void checkAfterWork();

  bool displaysAreUnderWay() const { return displays_ > 0; }
  bool refreshesAreUnderWay() const { return refreshes_ > 0; }

  void progressWasSet(const toolkit::ProgressView& progressView) override;
  void tableDid(const toolkit::TableEvent& event) override;
  void refreshWasInstalled() override;
  void refreshBegan() override;
  void refreshEnded() override;
  void alertWasPresented(const toolkit::Alert& alert) override;

 private:
  using Titles = std::vector<TextRef>;
  struct Section {
    Titles shown;
    std::vector<std::int64_t> deleted;   // by the open batch
    std::vector<std::int64_t> inserted;  // by the open batch
  };

  Titles titlesOfSource(std::size_t section) const;
  void reread();
  void record(const std::vector<toolkit::IndexPath>& rows, bool inserted);
  void batchEnded();
  void repaired(const toolkit::table_event::Repaired& repair);
  void checkShownAgainstList();
  bool repairIsAccepted(const toolkit::table_event::Repaired& repair) const;
  void operationBegan();

  History& history_;
  const ListWatch& list_;
  const WiFiProfileViewController* controller_ = nullptr;
  bool checks_ = true;
  std::array<Section, 2> sections_;
  int openBatches_ = 0;
  std::set<std::int64_t> awaitedRepairs_;  // sections
  bool tableChanged_ = false;              // since the last check
  float progress_ = 0;

  // The causes of batches that may fail to add up.
  const void* scanShown_ = nullptr;  // that the table's rows are of
  int displaysEver_ = 0;
  int displays_ = 0;   // under way
  int refreshes_ = 0;  // under way
  bool operationsOverlapped_ = false;
  bool chosenBehindTheTable_ = false;
  bool mayShowSomethingElse_ = false;  // one of them has held since the rows were all read
  bool operationWasShown_ = false;     // by the work under way
  bool displayWasShown_ = false;       // the same, of a display
};

}  // namespace wifi_profile::simulation
