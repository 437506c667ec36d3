// Pull to refresh: the user drags a table down to reload its content.
#pragma once

#include <functional>
#include <utility>

namespace wifi_profile::toolkit {

// Main thread only.
class RefreshControl final {
 public:
  // A pull calls `action`: the value of the control has changed.
  explicit RefreshControl(std::function<void()> action) : action_(std::move(action)) {}

  bool isRefreshing() const { return refreshing_; }

  // User action. Does nothing while the control is refreshing.
  void pull();
  // Reports the end to the screen.
  void endRefreshing();

 private:
  std::function<void()> action_;
  bool refreshing_ = false;
};

}  // namespace wifi_profile::toolkit
