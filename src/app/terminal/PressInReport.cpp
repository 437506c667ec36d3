#include "app/terminal/PressParts.h"
#include "app/terminal/ReportLines.h"

namespace wifi_profile::terminal {
namespace {

using Name = Key::Name;

bool moved(const ReportLines& lines, ReportPlace& place, int height, const Key& key) {
  if (key.name == Name::down || key.is("j")) {
    place = movedBy(lines, std::move(place), height, 1);
  } else if (key.name == Name::up || key.is("k")) {
    place = movedBy(lines, std::move(place), height, -1);
  } else if (key.name == Name::pageDown) {
    place = pagedBy(lines, std::move(place), height, 1);
  } else if (key.name == Name::pageUp) {
    place = pagedBy(lines, std::move(place), height, -1);
  } else if (key.name == Name::home || key.name == Name::end) {
    place.item = key.name == Name::home ? 0 : lines.items.size() - 1;
    place = revealed(lines, std::move(place), height);
  } else {
    return false;
  }
  return true;
}

}  // namespace

Effect pressedInReport(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
  ReportPlace& place = state.report;
  const ReportLines lines = reportLines(*shown.report, look, place.open);
  const int height = bodyLines(look.extent);
  if (key.is("q") || key.name == Name::escape) return effect::Close{};
  if (key.is("?")) state.help = 0;
  if (moved(lines, place, height, key) || key.name != Name::enter) return {};
  if (place.item + 1 >= lines.items.size()) return effect::Close{};
  if (place.open.erase(place.item) == 0 && lines.items[place.item].opens) {
    place.open.insert(place.item);
  }
  const ReportLines after = reportLines(*shown.report, look, place.open);
  const auto& item = after.items[place.item];
  // An item that is higher than the screen is shown from its beginning.
  if (item.end - item.first > height) place.firstLine = item.first;
  place = revealed(after, std::move(place), height);
  return {};
}

}  // namespace wifi_profile::terminal
