// Pull to refresh: a person drags a table down, and its content is fetched anew.
#pragma once

#include <functional>
#include <utility>

namespace wifi_profile::toolkit {

// Main thread only.
class RefreshControl final {
 public:
  // `action` is what a pull is for: the control's value has changed.
  explicit RefreshControl(std::function<void()> action) : action_(std::move(action)) {}

  bool isRefreshing() const { return refreshing_; }

  // What a person does. Nothing while it is refreshing.
  void pull();
  // Told to the screen.
  void endRefreshing();

 private:
  std::function<void()> action_;
  bool refreshing_ = false;
};

}  // namespace wifi_profile::toolkit
