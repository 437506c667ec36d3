// The display order of network names.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Platform.h"

namespace wifi_profile {

class NameCollator : public Interface {
 public:
  static NameCollator* shared() {
    return InstalledPlatform::get(&Platform::collator, "the name collator");
  }

  // Returns the sort key of a name. The order of the bytes of the keys is the display order of the
  // names. Names that differ only in details that do not affect this order, such as letter case,
  // have equal keys. A name may contain any bytes. Any thread, concurrently.
  virtual std::string sortKey(std::string_view name) const = 0;
};

}  // namespace wifi_profile
