#include "devices/linux/netlink/Nl80211.h"

#include <algorithm>
#include <cerrno>
#include <linux/genetlink.h>
#include <linux/netlink.h>
#include <linux/nl80211.h>

#include "devices/linux/SinceBoot.h"
#include "devices/linux/netlink/RadioEntries.h"

namespace wifi_profile::linux::netlink {

namespace {

const Error kGone{Reason::noHardware,
                  "The Wi-Fi interface is gone. Plug it in again, or use another one."};

Request about(int family, int command, Request::Kind kind, const WifiInterface& interface) {
  Request request(family, command, kind);
  request.put(NL80211_ATTR_IFINDEX, static_cast<std::uint32_t>(interface.index));
  return request;
}

// Returns the number of a multicast group from a family's description; 0: there is none.
int groupOf(const Attributes& family, std::string_view name) {
  for (const Attribute& one : family.nested(CTRL_ATTR_MCAST_GROUPS)) {
    const Attributes group(one.payload);
    if (group.text(CTRL_ATTR_MCAST_GRP_NAME) != name) continue;
    return group.number<std::int32_t>(CTRL_ATTR_MCAST_GRP_ID).value_or(0);
  }
  return 0;
}

}  // namespace

Error noWifiDevice() {
  return {Reason::noHardware,
          "There is no Wi-Fi device, or its driver is not loaded. Plug one in, or load its driver "
          "(modprobe)."};
}

Status Nl80211::open(const Deadline& deadline) {
  if (family_ != 0) return {};
  Request request(GENL_ID_CTRL, CTRL_CMD_GETFAMILY, Request::Kind::one);
  request.put(CTRL_ATTR_FAMILY_NAME, NL80211_GENL_NAME);
  std::vector<Message> answers;
  const int error = requests_.ask(request, deadline, answers);
  if (error == ENOENT) return noWifiDevice();
  if (error != 0) return unknownFor(error, "its Wi-Fi devices");
  if (answers.empty()) return noWifiDevice();
  const Attributes family(answers.front().payload);
  family_ = family.number<std::uint16_t>(CTRL_ATTR_FAMILY_ID).value_or(0);
  scanGroup_ = groupOf(family, NL80211_MULTICAST_GROUP_SCAN);
  linkGroup_ = groupOf(family, NL80211_MULTICAST_GROUP_MLME);
  if (family_ == 0) return noWifiDevice();
  return {};
}

Result<std::vector<Message>> Nl80211::ask(Request& request, std::string_view subject,
                                          const Deadline& deadline) {
  std::vector<Message> answers;
  const int error = requests_.ask(request, deadline, answers);
  if (error != 0) return unknownFor(error, subject);
  return answers;
}

Result<std::vector<WifiInterface>> Nl80211::interfaces(const Deadline& deadline) {
  if (const Status ready = open(deadline); !ready) return ready.error();
  Request request(family_, NL80211_CMD_GET_INTERFACE, Request::Kind::dump);
  const auto answers = ask(request, "the Wi-Fi interfaces", deadline);
  if (!answers) return answers.error();
  std::vector<WifiInterface> interfaces;
  for (const Message& answer : *answers) {
    if (auto one = interfaceOf(Attributes(answer.payload))) interfaces.push_back(std::move(*one));
  }
  if (interfaces.empty()) return noWifiDevice();
  sortForUse(interfaces);
  return interfaces;
}

Result<WifiInterface> Nl80211::now(const WifiInterface& interface, const Deadline& deadline) {
  auto request = about(family_, NL80211_CMD_GET_INTERFACE, Request::Kind::one, interface);
  const auto answers = ask(request, "the state of the interface", deadline);
  if (!answers) return answers.error();
  if (answers->empty()) return kGone;
  const auto read = interfaceOf(Attributes(answers->front().payload));
  if (!read) return kGone;
  return *read;
}

Result<std::vector<ScanEntry>> Nl80211::scanEntries(const WifiInterface& interface,
                                                    const Deadline& deadline) {
  auto request = about(family_, NL80211_CMD_GET_SCAN, Request::Kind::dump, interface);
  const auto answers = ask(request, "the list of access points", deadline);
  if (!answers) return answers.error();
  std::vector<ScanEntry> entries;
  const auto time = sinceBoot();
  for (const Message& answer : *answers) {
    const Attributes attributes(answer.payload);
    auto entry = scanEntryOf(attributes.nested(NL80211_ATTR_BSS), time);
    if (entry) entries.push_back(std::move(*entry));
  }
  return entries;
}

Result<facts::Link> Nl80211::link(const WifiInterface& interface, const Deadline& deadline) {
  if (const Status ready = open(deadline); !ready) return ready.error();
  const auto current = now(interface, deadline);
  if (!current) return current.error();

  auto request = about(family_, NL80211_CMD_GET_STATION, Request::Kind::dump, interface);
  const auto stations = ask(request, "the link", deadline);
  if (!stations) return stations.error();
  std::optional<StationEntry> station;
  for (const Message& answer : *stations) {
    if (!station) station = stationEntryOf(Attributes(answer.payload));
  }
  std::optional<ScanEntry> joined;
  if (station) {
    auto entries = scanEntries(*current, deadline);
    // Without the scan list, some values of the link are missing.
    if (!entries && entries.error().reason == Reason::tookTooLong) return entries.error();
    if (entries) {
      const auto found = std::ranges::find_if(*entries, &ScanEntry::joined);
      if (found != entries->end()) joined = std::move(*found);
    }
  }
  const auto link = linkOf(*current, station, joined);
  if (!link) {
    return Error{Reason::notJoined,
                 "The Wi-Fi interface is not joined to a network. Join one and try again."};
  }
  return *link;
}

Status Nl80211::watchLink(const Deadline& deadline) {
  constexpr std::string_view kSubject = "changes of the link";
  if (const Status ready = open(deadline); !ready) return ready.error();
  if (linkGroup_ == 0) return unknownFor(EOPNOTSUPP, kSubject);
  if (const int error = events_.listen(linkGroup_); error != 0) return unknownFor(error, kSubject);
  return {};
}

LinkEvents Nl80211::takeLinkEvents(const WifiInterface& interface) {
  std::vector<Message> events;
  LinkEvents taken{.missed = events_.takeEvents(events) == ENOBUFS};
  for (const Message& event : events) {
    if (event.type == family_) addToLinkEvents(event, interface, taken);
  }
  return taken;
}

Result<ScanList> Nl80211::scan(const WifiInterface& interface, const Deadline& deadline,
                               std::optional<std::chrono::nanoseconds> heardSince) {
  if (const Status ready = open(deadline); !ready) return ready.error();
  auto entries = scanEntries(interface, deadline);
  if (!entries) return entries.error();
  if (heardSince) {
    removeOlderThan(std::chrono::ceil<std::chrono::milliseconds>(sinceBoot() - *heardSince),
                    *entries);
  }
  return scanListOf(std::move(*entries));
}

Result<std::vector<facts::ChannelSurvey>> Nl80211::surveys(const WifiInterface& interface,
                                                           const Deadline& deadline) {
  if (const Status ready = open(deadline); !ready) return ready.error();
  auto request = about(family_, NL80211_CMD_GET_SURVEY, Request::Kind::dump, interface);
  const auto answers = ask(request, "the survey of the channels", deadline);
  if (!answers) return answers.error();
  std::vector<facts::ChannelSurvey> surveys;
  for (const Message& answer : *answers) {
    if (const auto one = surveyOf(Attributes(answer.payload))) surveys.push_back(*one);
  }
  if (surveys.empty()) return unknownFor(EOPNOTSUPP, "the survey of the channels");
  std::ranges::stable_sort(surveys, {}, &facts::ChannelSurvey::frequency);
  return surveys;
}

Result<facts::Radio> Nl80211::radio(const WifiInterface& interface, const Deadline& deadline) {
  const auto all = interfaces(deadline);
  if (!all) return all.error();
  auto radio = abilities(interface, deadline);
  if (radio) radio->interfaces = interfacesBeside(interface, *all);
  return radio;
}

Result<facts::Radio> Nl80211::abilities(const WifiInterface& interface, const Deadline& deadline) {
  if (const Status ready = open(deadline); !ready) return ready.error();
  Request request(family_, NL80211_CMD_GET_WIPHY, Request::Kind::dump);
  request.putFlag(NL80211_ATTR_SPLIT_WIPHY_DUMP).put(NL80211_ATTR_WIPHY, interface.wiphy);
  const auto answers = ask(request, "the abilities of the radio", deadline);
  if (!answers) return answers.error();
  facts::Radio radio;
  bool found = false;
  for (const Message& answer : *answers) {
    const Attributes attributes(answer.payload);
    // Old kernels ignore the filter of the request.
    if (attributes.number<std::uint32_t>(NL80211_ATTR_WIPHY) != interface.wiphy) continue;
    addToRadio(attributes, radio);
    found = true;
  }
  if (!found) return kGone;
  finishChannels(radio);
  return radio;
}

Result<facts::Regulatory> Nl80211::regulatory(const WifiInterface& interface,
                                              const Deadline& deadline) {
  if (const Status ready = open(deadline); !ready) return ready.error();
  Request request(family_, NL80211_CMD_GET_REG, Request::Kind::one);
  request.put(NL80211_ATTR_WIPHY, interface.wiphy);
  const auto answers = ask(request, "the country of the rules", deadline);
  if (!answers) return answers.error();
  if (!answers->empty()) {
    const auto regulatory = regulatoryOf(Attributes(answers->front().payload));
    if (regulatory) return *regulatory;
  }
  return Error{Reason::notTold,
               "The kernel follows rules that are no country's, such as the driver's own. Set the "
               "country, for instance with `iw reg set`."};
}

}  // namespace wifi_profile::linux::netlink
