// What one frame of the terminal's list costs, whatever the length of the list.

#include <benchmark/benchmark.h>
#include <clocale>

#include "app/terminal/KeyHandler.h"
#include "app/terminal/TerminalFrame.h"
#include "diagnostic/platform/WorkQueues.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/NoScreen.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile {
namespace {

// A table of that many networks, and the row for another one.
class ManyRows final : public toolkit::TableViewDataSource {
 public:
  explicit ManyRows(std::int64_t rows) : rows_(rows) {}
  std::int64_t numberOfSectionsInTableView(const toolkit::TableView& /*table*/) override {
    return 2;
  }
  std::int64_t tableViewNumberOfRowsInSection(const toolkit::TableView& /*table*/,
                                              std::int64_t section) override {
    return section == 1 ? rows_ : 0;
  }
  std::shared_ptr<toolkit::TableViewCell> tableViewCellForRowAtIndexPath(
      toolkit::TableView& table, toolkit::IndexPath path) override {
    auto cell = table.dequeueReusableCell("row", path);
    cell->textLabel().text = makeText("Café Linde 茶室 " + std::to_string(path.row));
    return cell;
  }

 private:
  std::int64_t rows_;
};

// A page down, or up again at the end of the list, and the frame after it.
void terminalPage(benchmark::State& state) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  runtime::VirtualTimeRunLoop loop;
  runtime::BuiltInStringTable texts("en");
  runtime::NoScreen screen;
  const InstalledPlatform platform({.queues = &loop, .texts = &texts, .screen = &screen});
  const auto rows = std::make_shared<ManyRows>(state.range(0));
  const auto table = std::make_shared<toolkit::TableView>();
  table->registerCell<toolkit::TableViewCell>("row");
  table->setDataSource(rows);
  table->reloadData();
  const terminal::Shown shown{.content = {.bar = nullptr,
                                          .item = nullptr,
                                          .table = table,
                                          .label = nullptr,
                                          .progress = nullptr},
                              .alert = nullptr,
                              .tests = {},
                              .report = nullptr};
  const terminal::Look look{
      .extent = {static_cast<int>(state.range(1)), static_cast<int>(state.range(2))}};
  terminal::TerminalState screenState = terminal::withValidCursor(shown, {}, look);
  terminal::Key key{terminal::Key::Name::pageDown, ""};
  for ([[maybe_unused]] auto iteration : state) {
    const toolkit::IndexPath before = screenState.list.cursor;
    screenState =
        terminal::handleKey(shown, terminal::withValidCursor(shown, std::move(screenState), look),
                            look, key)
            .state;
    if (screenState.list.cursor == before) {
      key.name = key.name == terminal::Key::Name::pageDown ? terminal::Key::Name::pageUp
                                                           : terminal::Key::Name::pageDown;
    }
    benchmark::DoNotOptimize(terminal::frameOf(shown, screenState, look));
  }
}
BENCHMARK(terminalPage)
    ->ArgNames({"rows", "columns", "lines"})
    ->Args({100, 80, 24})
    ->Args({10000, 80, 24})
    ->Args({10000, 300, 100})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace wifi_profile
