#include "devices/linux/netlink/Captures.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <linux/genetlink.h>
#include <linux/netlink.h>

namespace wifi_profile::linux::netlink {
namespace {

// pcap's own headers (pcap-savefile(5)), and what stands before the messages of a packet
// (LINKTYPE_NETLINK): two octets each, the high one first.
constexpr std::size_t kFileHeader = 24;
constexpr std::size_t kRecordHeader = 16;
constexpr std::size_t kLengthInRecordHeader = 8;
constexpr std::size_t kPacketHeader = 16;
constexpr std::size_t kFamilyInPacketHeader = 14;

// Recorded and read on machines of one order of octets.
template <class Value>
Value valueAt(const ieee80211::Octets& octets, std::size_t place) {
  Value value{};
  if (place + sizeof value <= octets.size()) std::memcpy(&value, &octets[place], sizeof value);
  return value;
}

ieee80211::Octets part(const ieee80211::Octets& octets, std::size_t begin, std::size_t end) {
  const std::size_t last = std::min(end, octets.size());
  const std::size_t first = std::min(begin, last);
  return {octets.begin() + static_cast<std::ptrdiff_t>(first),
          octets.begin() + static_cast<std::ptrdiff_t>(last)};
}

void addMessages(const ieee80211::Octets& packet, std::vector<CapturedMessage>& all) {
  const int family = packet[kFamilyInPacketHeader] * 256 + packet[kFamilyInPacketHeader + 1];
  if (family != NETLINK_GENERIC) return;
  std::size_t place = kPacketHeader;
  while (place + NLMSG_HDRLEN + GENL_HDRLEN <= packet.size()) {
    const auto header = valueAt<nlmsghdr>(packet, place);
    if (header.nlmsg_len < NLMSG_HDRLEN) return;
    const bool isQuestion = (header.nlmsg_flags & NLM_F_REQUEST) != 0;
    if (header.nlmsg_type > GENL_ID_CTRL && !isQuestion) {
      const auto generic = valueAt<genlmsghdr>(packet, place + NLMSG_HDRLEN);
      all.push_back({generic.cmd,
                     part(packet, place + NLMSG_HDRLEN + GENL_HDRLEN, place + header.nlmsg_len)});
    }
    place += NLMSG_ALIGN(header.nlmsg_len);
  }
}

}  // namespace

std::vector<CapturedMessage> capturedMessages(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  const ieee80211::Octets octets{std::istreambuf_iterator<char>(in), {}};
  std::vector<CapturedMessage> all;
  std::size_t place = kFileHeader;
  while (place + kRecordHeader + kPacketHeader <= octets.size()) {
    const auto length = valueAt<std::uint32_t>(octets, place + kLengthInRecordHeader);
    place += kRecordHeader;
    const ieee80211::Octets packet = part(octets, place, place + length);
    if (packet.size() >= kPacketHeader) addMessages(packet, all);
    place += length;
  }
  return all;
}

}  // namespace wifi_profile::linux::netlink
