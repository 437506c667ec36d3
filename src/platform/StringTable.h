// The texts that a person sees, by localisation key.
#pragma once

#include <string>
#include <string_view>

#include "platform/Installed.h"
#include "platform/Interface.h"

namespace wifi_profile {

class StringTable : public Interface {
 public:
  // The text of `key`, or `fallback` where the table has none.
  virtual std::string textForKey(std::string_view key, std::string_view fallback) const = 0;
};

// The text of `key` in the extension's own table, or an empty text.
inline std::string localizedString(std::string_view key) {
  return Installed<StringTable>::get()->textForKey(key, "");
}

}  // namespace wifi_profile
