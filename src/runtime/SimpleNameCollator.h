// Orders names with the standard library alone.
#pragma once

#include "diagnostic/platform/NameCollator.h"

namespace wifi_profile::runtime {

// Orders names by their code points, which is the order of the bytes of UTF-8, and treats A to Z
// like a to z. Other letters, with accents or of other scripts, therefore come after z.
class SimpleNameCollator final : public NameCollator {
 public:
  void appendSortKey(std::string_view name, std::string& key) const override {
    for (const char c : name) key += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
};

}  // namespace wifi_profile::runtime
