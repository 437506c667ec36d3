// An order of names that needs the standard library only.
#pragma once

#include "platform/NameCollator.h"

namespace wifi_profile {

// Names stand in the order of their code points, which is that of the bytes of UTF-8, with the
// letters A to Z taken for a to z. So other letters, with accents or of other scripts, come after
// z.
class SimpleNameCollator final : public NameCollator {
 public:
  void appendSortKey(std::string_view name, std::string& key) const override {
    for (const char c : name) key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
};

}  // namespace wifi_profile
