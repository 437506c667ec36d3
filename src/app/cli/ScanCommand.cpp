#include "app/cli/ScanCommand.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <fmt/format.h>
#include <unistd.h>
#include <vector>

#include "analysis/facts/SecurityKinds.h"
#include "app/cli/Console.h"
#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "app/cli/OpenDevice.h"
#include "app/cli/ScanRows.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "runtime/JsonWriter.h"
#include "runtime/SafeText.h"

namespace wifi_profile::cli {
namespace {

constexpr const char* kPlain = "\033[0m";

// Green: strong enough for video calls. Yellow: enough for web pages. Red: weak.
std::string_view colorOf(int signal) {
  constexpr int kStrong = -60;
  constexpr int kWeak = -75;
  return signal >= kStrong ? "\033[32m" : signal >= kWeak ? "\033[33m" : "\033[31m";
}

std::string orDash(std::string_view text) { return text.empty() ? "-" : std::string(text); }

std::string numberOrDash(int number, std::string_view unit) {
  return number == 0 ? "-" : fmt::format("{}{}", number, unit);
}

std::string nameText(const facts::AccessPoint& accessPoint) {
  return accessPoint.ssid ? runtime::safeText(*accessPoint.ssid) : "(hidden)";
}

// The columns without the name, which is last because its width is unknown.
constexpr std::size_t kColumns = 7;
using Cells = std::array<std::string, kColumns>;

Cells cellsOf(const ScanRow& row, bool all) {
  const facts::AccessPoint& one = *row.accessPoint;
  return {one.signal ? fmt::format("{} dBm", *one.signal) : "-",
          orDash(bandText(one)),
          one.channel ? std::to_string(one.channel->primary) : "-",
          numberOrDash(widthOf(one), " MHz"),
          orDash(facts::textOf(one.security)),
          orDash(generationOf(one)),
          all ? one.bssid : std::to_string(row.accessPoints)};
}

ObjectRef numberOrNull(int number) {
  return number == 0 ? nullPlaceholder() : Number::withInteger(number);
}

ObjectRef textOrNull(std::string_view text) {
  return text.empty() ? nullPlaceholder() : ObjectRef(makeText(text));
}

// Returns the rates in Mbit/s. `halves` are multiples of 0.5 Mbit/s.
ObjectRef ratesOrNull(const std::vector<int>& halves) {
  if (halves.empty()) return nullPlaceholder();
  std::vector<ObjectRef> rates;
  rates.reserve(halves.size());
  for (const int half : halves) rates.push_back(Number::withDouble(half / 2.0));
  return std::make_shared<const Array>(std::move(rates));
}

ObjectRef secondsOrNull(std::optional<std::chrono::milliseconds> time) {
  return time ? ObjectRef(Number::withDouble(static_cast<double>(time->count()) / 1000))
              : nullPlaceholder();
}

ObjectRef objectOf(const ScanRow& row) {
  const facts::AccessPoint& one = *row.accessPoint;
  return makeDictionary({
      {"accessPoints", Number::withInteger(static_cast<std::int64_t>(row.accessPoints))},
      {"age", secondsOrNull(one.age)},
      {"band", textOrNull(bandText(one))},
      {"basicRates", ratesOrNull(one.basicRates)},
      {"beaconInterval", numberOrNull(one.beaconInterval.value_or(0))},
      {"bssid", makeText(one.bssid)},
      {"channel", numberOrNull(one.channel ? one.channel->primary : 0)},
      {"country", textOrNull(one.country.value_or(""))},
      {"dtimInterval", numberOrNull(one.dtimPeriod.value_or(0))},
      {"frequency", numberOrNull(frequencyOf(one))},
      {"generation", textOrNull(generationOf(one))},
      {"hidden", one.hidesName ? Number::withBool(*one.hidesName) : nullPlaceholder()},
      {"joined", Number::withBool(row.joined)},
      {"rates", ratesOrNull(one.rates)},
      {"security", textOrNull(facts::textOf(one.security))},
      {"signal", one.signal ? ObjectRef(Number::withInteger(*one.signal)) : nullPlaceholder()},
      {"ssid", one.ssid ? ObjectRef(makeText(*one.ssid)) : nullPlaceholder()},
      {"width", numberOrNull(widthOf(one))},
  });
}

Result<NetworksInRange> networksOfComputer(const ScanOptions& options) {
  const auto machine = openComputer(options.device);
  if (!machine) return machine.error();
  const auto deadline = linux::Deadline::in(linux::kScanLimit);  // an interrupt ends the process
  auto list = (*machine)->scan(std::chrono::seconds(options.maxScanCacheAge), deadline);
  if (!list) return list.error();
  const auto& missing = list->scan.incomplete;
  if (missing && list->scan.accessPoints.empty()) return *missing;
  return NetworksInRange{std::move(list->scan), std::move(list->joinedBssid)};
}

Error cannotList(const std::string& device, const std::string& why) {
  return {Reason::failed, "cannot list networks of " + device + ": " + why};
}

// Returns the scan in a scenario's world.
Result<NetworksInRange> networksOfScenario(const std::string& device,
                                           const scenario::Scenario& scenario) {
  const auto& world = scenario.world;
  if (!world || !world->facts.scan) {
    const std::string why = world ? world->facts.scan.error().message : "";
    return cannotList(device, why.empty() ? "its world has no \"scan\"" : why);
  }
  NetworksInRange networks{*world->facts.scan, std::nullopt};
  if (const auto& link = world->facts.link) networks.joinedBssid = link->bssid;
  return networks;
}

}  // namespace

std::string scanText(const NetworksInRange& networks, const ScanStyle& style) {
  const auto rows = scanRows(networks.scan, networks.joinedBssid, style.all);
  if (rows.empty()) return "No networks in range.\n";
  std::vector<Cells> table{
      {"Signal", "Band", "Channel", "Width", "Security", "Wi-Fi", style.all ? "BSSID" : "Points"}};
  for (const ScanRow& row : rows) table.push_back(cellsOf(row, style.all));
  std::array<std::size_t, kColumns> widths{};
  for (const Cells& cells : table) {
    for (std::size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], cells[i].size());
  }
  std::string text;
  for (std::size_t line = 0; line < table.size(); ++line) {
    const ScanRow* row = line == 0 ? nullptr : &rows[line - 1];
    const bool colored = style.color && row && row->accessPoint->signal;
    text += row && row->joined ? "* " : "  ";
    for (std::size_t i = 0; i < kColumns; ++i) {
      if (i == 0 && colored) text += colorOf(*row->accessPoint->signal);
      // Right-align numbers.
      const bool right = i == 0 || i == 2 || i == 3 || (i == 6 && !style.all);
      text += right ? fmt::format("{:>{}}", table[line][i], widths[i])
                    : fmt::format("{:<{}}", table[line][i], widths[i]);
      if (i == 0 && colored) text += kPlain;
      text += "  ";
    }
    text += row ? nameText(*row->accessPoint) : "Name";
    text += '\n';
  }
  return text;
}

std::string scanJson(const NetworksInRange& networks, bool all) {
  std::vector<ObjectRef> objects;
  for (const ScanRow& row : scanRows(networks.scan, networks.joinedBssid, all)) {
    objects.push_back(objectOf(row));
  }
  return runtime::jsonText(std::make_shared<const Array>(std::move(objects))) + "\n";
}

int scanCommand(const ScanOptions& options) {
  Result<NetworksInRange> networks;
  if (isScenario(options.device)) {
    const auto scenario = openScenario(*options.device);
    if (!scenario) return complain({kExitScenario, scenario.error()});
    networks = networksOfScenario(*options.device, *scenario);
  } else {
    networks = networksOfComputer(options);
  }
  if (!networks) return complain({kExitNoDevice, networks.error()});
  const bool color = isTerminal(STDOUT_FILENO) && !environmentHas("NO_COLOR");
  const std::string text = options.json ? scanJson(*networks, options.all)
                                        : scanText(*networks, {.all = options.all, .color = color});
  if (const auto& incomplete = networks->scan.incomplete) {
    complain(kExitDone, incomplete->message + " The list contains earlier results only.");
  }
  const Status printed = print(text);
  return printed ? kExitDone : complain({kExitOutput, printed.error()});
}

}  // namespace wifi_profile::cli
