#include "devices/linux/netlink/Attributes.h"

#include <algorithm>
#include <linux/netlink.h>

namespace wifi_profile::linux::netlink {

Attributes::Attributes(ieee80211::Bytes bytes) {
  while (bytes.size() >= sizeof(nlattr)) {
    nlattr header{};
    std::memcpy(&header, bytes.data(), sizeof header);
    if (header.nla_len < sizeof header || header.nla_len > bytes.size()) return;
    all_.push_back({header.nla_type & NLA_TYPE_MASK,
                    bytes.subspan(sizeof header, header.nla_len - sizeof header)});
    const std::size_t aligned = (std::size_t{header.nla_len} + 3U) & ~std::size_t{3};
    bytes = bytes.subspan(std::min(aligned, bytes.size()));
  }
}

std::optional<ieee80211::Bytes> Attributes::find(int type) const {
  const auto found = std::find_if(all_.rbegin(), all_.rend(),
                                  [type](const auto& one) { return one.type == type; });
  if (found == all_.rend()) return std::nullopt;
  return found->payload;
}

std::optional<std::string> Attributes::text(int type) const {
  const auto payload = find(type);
  if (!payload) return std::nullopt;
  return std::string(payload->begin(), std::find(payload->begin(), payload->end(), 0));
}

Attributes Attributes::nested(int type) const {
  const auto payload = find(type);
  return payload ? Attributes(*payload) : Attributes();
}

}  // namespace wifi_profile::linux::netlink
