// The bar at the top of a screen and what stands in it.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/toolkit/View.h"
#include "platform/toolkit/ViewController.h"

namespace wifi_profile::toolkit {

class BarButtonItem;

// One item of a bar: its title and its right-hand button. Main thread only.
class NavigationItem final {
 public:
  explicit NavigationItem(std::string title) : title_(std::move(title)) {}
  const std::string& title() const { return title_; }

  // null: no button.
  const std::shared_ptr<BarButtonItem>& rightBarButtonItem() const { return rightBarButtonItem_; }
  void setRightBarButtonItem(std::shared_ptr<BarButtonItem> button) {
    rightBarButtonItem_ = std::move(button);
  }

 private:
  std::string title_;
  std::shared_ptr<BarButtonItem> rightBarButtonItem_;
};

// Main thread only.
class NavigationBar final : public View {
 public:
  using View::View;

  // A locked bar refuses to be changed by others than its owner.
  bool isLocked() const { return locked_; }
  void setLocked(bool locked) { locked_ = locked; }

  // The controller that answers the bar's questions; not kept alive.
  std::shared_ptr<ViewController> delegate() const { return delegate_.lock(); }
  void setDelegate(std::weak_ptr<ViewController> delegate) { delegate_ = std::move(delegate); }

  const std::vector<std::shared_ptr<NavigationItem>>& items() const { return items_; }
  void setItems(std::vector<std::shared_ptr<NavigationItem>> items) { items_ = std::move(items); }

 private:
  bool locked_ = true;
  std::weak_ptr<ViewController> delegate_;
  std::vector<std::shared_ptr<NavigationItem>> items_;
};

// Holds a controller under a navigation bar, and makes that bar. The controller is not kept alive.
class NavigationContainer final {
 public:
  explicit NavigationContainer(std::weak_ptr<ViewController> root) : root_(std::move(root)) {}
  std::shared_ptr<ViewController> rootViewController() const { return root_.lock(); }
  const std::shared_ptr<NavigationBar>& navigationBar() const { return navigationBar_; }

 private:
  // The usual bar: as wide as a small phone, 44 points high.
  static constexpr Rect kBarFrame{{0, 0}, {320, 44}};
  std::weak_ptr<ViewController> root_;
  std::shared_ptr<NavigationBar> navigationBar_ = std::make_shared<NavigationBar>(kBarFrame);
};

}  // namespace wifi_profile::toolkit
