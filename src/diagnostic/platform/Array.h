// Lists as values.
#pragma once

#include <utility>
#include <vector>

#include "diagnostic/platform/Object.h"

namespace wifi_profile {

// An immutable list. No element is nil; the null placeholder stands for a missing value.
class Array final : public Object {
 public:
  explicit Array(std::vector<ObjectRef> elements) : elements_(std::move(elements)) {}
  const std::vector<ObjectRef>& elements() const { return elements_; }

 private:
  const std::vector<ObjectRef> elements_;
};

using ArrayRef = std::shared_ptr<const Array>;

}  // namespace wifi_profile
