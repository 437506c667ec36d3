// An order of names for tests: bytewise, without regard to the case of ASCII letters.
#pragma once

#include <atomic>

#include "diagnostic/platform/NameCollator.h"

namespace wifi_profile {

// Counts the keys that it was asked for.
class FoldingCollator final : public NameCollator {
 public:
  std::string sortKey(std::string_view name) const override {
    ++calls_;
    std::string key(name);
    for (char& c : key) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return key;
  }
  int calls() const { return calls_; }

 private:
  mutable std::atomic<int> calls_{0};
};

}  // namespace wifi_profile
