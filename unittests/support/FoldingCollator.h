// An order of names without regard to the case of ASCII letters, which knows how often it was
// asked.
#pragma once

#include <atomic>

#include "runtime/SimpleNameCollator.h"

namespace wifi_profile {

class FoldingCollator final : public NameCollator {
 public:
  void appendSortKey(std::string_view name, std::string& key) const override {
    ++calls_;
    simple_.appendSortKey(name, key);
  }
  int calls() const { return calls_; }

 private:
  runtime::SimpleNameCollator simple_;
  mutable std::atomic<int> calls_{0};
};

}  // namespace wifi_profile
