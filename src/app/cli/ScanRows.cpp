#include "app/cli/ScanRows.h"

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>

namespace wifi_profile::cli {
namespace {

// An unknown signal sorts as the weakest.
int signalOf(const facts::AccessPoint& accessPoint) {
  return accessPoint.signal.value_or(std::numeric_limits<int>::min());
}

bool isBefore(const ScanRow& a, const ScanRow& b) {
  const auto key = [](const ScanRow& row) {
    return std::tuple(-static_cast<long long>(signalOf(*row.accessPoint)),
                      row.accessPoint->ssid.value_or(""), row.accessPoint->bssid);
  };
  return key(a) < key(b);
}

}  // namespace

std::vector<ScanRow> scanRows(const facts::Scan& scan,
                              const std::optional<std::string>& joinedBssid, bool all) {
  std::vector<ScanRow> rows;
  for (const facts::AccessPoint& one : scan.accessPoints) {
    rows.push_back({.accessPoint = &one, .joined = joinedBssid && one.bssid == *joinedBssid});
  }
  std::sort(rows.begin(), rows.end(), isBefore);
  std::map<std::string_view, ScanRow*> strongest;
  std::map<std::string_view, std::size_t> count;
  for (const ScanRow& row : rows) {
    if (row.accessPoint->ssid) ++count[*row.accessPoint->ssid];
  }
  std::vector<ScanRow> shown;
  shown.reserve(rows.size());  // keeps the pointers in `strongest` valid
  for (const ScanRow& row : rows) {
    const auto& name = row.accessPoint->ssid;
    if (name && !all && strongest.contains(*name)) {
      strongest[*name]->joined |= row.joined;
      continue;
    }
    shown.push_back(row);
    if (!name) continue;
    shown.back().accessPoints = count[*name];
    strongest[*name] = &shown.back();
  }
  return shown;
}

std::string_view bandText(const facts::AccessPoint& accessPoint) {
  if (!accessPoint.channel) return "";
  switch (accessPoint.channel->band) {
    case ieee80211::Band::ghz2:
      return "2.4 GHz";
    case ieee80211::Band::ghz5:
      return "5 GHz";
    case ieee80211::Band::ghz6:
      return "6 GHz";
  }
  return "";
}

int frequencyOf(const facts::AccessPoint& accessPoint) {
  if (!accessPoint.channel) return 0;
  const auto& channel = *accessPoint.channel;
  return ieee80211::frequencyOf(channel.band, channel.primary).value_or(0);
}

int widthOf(const facts::AccessPoint& accessPoint) {
  if (!accessPoint.channel || !accessPoint.channel->extent) return 0;
  switch (accessPoint.channel->extent->width) {
    case ieee80211::Width::mhz20:
      return 20;
    case ieee80211::Width::mhz40:
      return 40;
    case ieee80211::Width::mhz80:
      return 80;
    case ieee80211::Width::mhz160:
    case ieee80211::Width::mhz80Plus80:
      return 160;
    case ieee80211::Width::mhz320:
      return 320;
  }
  return 0;
}

std::string_view generationOf(const facts::AccessPoint& accessPoint) {
  const auto& modes = accessPoint.modes;
  const bool in6GHz = accessPoint.channel && accessPoint.channel->band == ieee80211::Band::ghz6;
  if (modes.be) return "7";
  if (modes.ax) return in6GHz ? "6E" : "6";
  if (modes.ac) return "5";
  if (modes.n) return "4";
  if (modes.g) return "g";
  if (modes.a) return "a";
  return modes.b ? "b" : "";
}

}  // namespace wifi_profile::cli
