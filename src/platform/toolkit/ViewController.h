// A screen's controller and the view it fills.
#pragma once

#include <memory>

#include "platform/toolkit/View.h"

namespace wifi_profile::toolkit {

// Main thread only.
class ViewController : public std::enable_shared_from_this<ViewController> {
 public:
  ViewController() = default;
  ViewController(const ViewController&) = delete;
  ViewController& operator=(const ViewController&) = delete;
  virtual ~ViewController() = default;

  // Made when first asked for.
  const std::shared_ptr<View>& view();

  // The layout pass. An override calls this one first.
  virtual void updateViewConstraints() {}

 private:
  std::shared_ptr<View> view_;
};

}  // namespace wifi_profile::toolkit
