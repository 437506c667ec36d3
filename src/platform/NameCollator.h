// The order of network names for people.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Installed.h"
#include "platform/Interface.h"

namespace wifi_profile {

class NameCollator : public Interface {
 public:
  static std::shared_ptr<NameCollator> shared() { return Installed<NameCollator>::get(); }

  // Appends to `key` the bytes of a sort key of `name`: as std::string orders the keys, people
  // order the names. Names that differ in nothing a person would sort by, such as letter case, have
  // equal keys. A name may be any bytes. Any thread, several at a time.
  virtual void appendSortKey(std::string_view name, std::string& key) const = 0;
};

}  // namespace wifi_profile
