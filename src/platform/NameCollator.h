// The order of network names for people.
#pragma once

#include <string>
#include <string_view>

#include "platform/Installed.h"
#include "platform/Interface.h"

namespace wifi_profile {

class NameCollator : public Interface {
 public:
  static std::shared_ptr<NameCollator> shared() { return Installed<NameCollator>::get(); }

  // Appends to `key` bytes whose bytewise order is the order of the names for people; names that
  // compare equal have equal keys. Any bytes are accepted as a name. Any thread.
  virtual void appendSortKey(std::string_view name, std::string& key) const = 0;
};

}  // namespace wifi_profile
