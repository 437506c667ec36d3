#include "simulation/ListWatch.h"

#include <algorithm>
namespace wifi_profile::simulation {
namespace {

bool haveSameName(const TextRef& one, const TextRef& other) {
  return (!one && !other) || equalNames(one, other);
}

bool holds(const NetworkList& list, const ScanResultRef& network) {
  return std::find(list.begin(), list.end(), network) != list.end();
}

std::string textOf(const NetworkList& list) {
  std::string text;
  for (const ScanResultRef& network : list) text += " " + quoted(network->ssidString());
  return text;
}

std::string sortKeyOf(const ScanResultRef& network) {
  return NameCollator::shared()->sortKey(network->ssidString()->string());
}

}  // namespace

void ListWatch::scanBegins(const WiFiProfileViewController& controller) {
  const TextRef name = controller.inputs()->selectedNetworkName();
  if (!haveSameName(name, selectedName_)) {
    selectedUnderTheList_ = true;
    if (dictionary_ && dictionary_->contains(name)) oddNames_.insert(name->string());
  }
  selectedName_ = name;
}

void ListWatch::check(const WiFiProfileViewController& controller, bool mayBeFirst,
                      bool mayBeRefresh) {
  const NetworkListRef list = controller.filteredWiFiScanResults();
  const NetworkDictionaryRef dictionary = controller.filteredNetworks();
  const NetworkDictionaryRef distinct = controller.distinctNetworks();
  const TextRef selectedName = controller.inputs()->selectedNetworkName();
  const bool landed = distinct != distinct_;
  if (!landed && list == list_ && dictionary == dictionary_ && selectedName == selectedName_)
    return;
  selectedName_ = selectedName;
  if (!distinct) {
    history_.require(!list && !dictionary, [] { return "there is a list before the first scan"; });
    return;
  }
  const NetworkListRef listBefore = std::exchange(list_, list);
  dictionary_ = dictionary;
  if (landed) {
    distinct_ = distinct;
    scanLanded(controller, mayBeFirst, mayBeRefresh);
  } else if (listBefore) {
    history_.require(common(*list, *listBefore) == common(*listBefore, *list),
                     [] { return "a network of the list moved although nothing was scanned"; });
  }
  history_.note([&] { return "list:" + textOf(*list) + "; selected: " + quoted(selectedName_); });
  checkOrder(*list);
  checkLists(*list, *dictionary);
}

void ListWatch::scanLanded(const WiFiProfileViewController& controller, bool mayBeFirst,
                           bool mayBeRefresh) {
  const VqWiFiStatusRef status = controller.wifiStatus();
  const TextRef joinedName = status ? status->ssidString : nullptr;
  const ExpectedList heard = expectedFrom(controller.wifiScanResults(), status);
  if (heard.current) current_ = heard.current;
  history_.require(controller.currentNetwork() == current_,
                   [] { return "the joined network's access point is another one"; });

  // The first list takes the joined network in if there is one, a refresh if the user had selected
  // one: the only case in which they differ is that of a selection without a joined network. (A
  // refresh that began with no selection selects the joined network, which changes nothing.)
  const auto fits = [&](bool joinedComesIn) {
    ExpectedList expected = heard;
    moveSelectedOut(expected, selectedName_, joinedName, current_, joinedComesIn);
    return areAsExpected(expected, *list_, *dictionary_, *distinct_);
  };
  history_.require((mayBeFirst && fits(joinedName != nullptr)) || (mayBeRefresh && fits(true)),
                   [] { return "the list is not what the scan makes it"; });

  selectedUnderTheList_ = false;
  oddNamesBefore_ = std::exchange(oddNames_, {});
  findOddNames(heard, status);
}

void ListWatch::findOddNames(const ExpectedList& heard, const VqWiFiStatusRef& status) {
  const TextRef joinedName = status ? status->ssidString : nullptr;
  if (current_ && holds(*list_, current_) && !equalNames(current_->ssidString(), joinedName)) {
    oddNames_.insert(current_->ssidString()->string());
  }
  if (!status) return;
  for (const auto& [name, network] : heard.distinct) {
    if (!equalNames(network->bssid(), status->bssid)) continue;
    if (!equalNames(network->ssidString(), joinedName)) oddNames_.insert(name);
  }
}

// The elements of `list` that `other` holds as well, but for those with odd names.
NetworkList ListWatch::common(const NetworkList& list, const NetworkList& other) const {
  NetworkList both;
  for (const ScanResultRef& network : list) {
    if (!isOdd(network->ssidString()) && holds(other, network)) both.push_back(network);
  }
  return both;
}

void ListWatch::checkLists(const NetworkList& list, const NetworkDictionary& dictionary) {
  std::size_t rows = 0;
  for (const ScanResultRef& network : list) {
    if (isOdd(network->ssidString())) continue;
    ++rows;
    history_.require(dictionary.networkNamed(network->ssidString()) == network,
                     [&] { return "\"" + network->ssidString()->string() + "\" is a row only"; });
  }
  const NetworkList networks = dictionary.networks();
  const auto entries =
      std::count_if(networks.begin(), networks.end(),
                    [this](const ScanResultRef& network) { return !isOdd(network->ssidString()); });
  history_.require(rows == static_cast<std::size_t>(entries),
                   [] { return "the list and its dictionary differ"; });
  history_.require(
      !dictionary.contains(selectedName_) || isOdd(selectedName_) || selectedUnderTheList_,
      [&] { return "the selected \"" + selectedName_->string() + "\" is listed"; });
}

void ListWatch::checkOrder(const NetworkList& list) {
  for (std::size_t i = 1; i < list.size(); ++i) {
    history_.require(sortKeyOf(list[i - 1]) <= sortKeyOf(list[i]),
                     [] { return "the list is not sorted by name"; });
  }
}

}  // namespace wifi_profile::simulation
