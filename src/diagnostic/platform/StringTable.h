// The texts that the user sees, by localisation key.
#pragma once

#include <string>
#include <string_view>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"

namespace wifi_profile {

class StringTable : public Interface {
 public:
  // Returns the text of `key`, or `fallback` if the table has no such key.
  virtual std::string textForKey(std::string_view key, std::string_view fallback) const = 0;
};

// Returns the text of `key` from the table of the extension, or an empty text.
inline std::string localizedString(std::string_view key) {
  return InstalledPlatform::get(&Platform::texts, "the string table")->textForKey(key, "");
}

}  // namespace wifi_profile
