// The bar at the top of a screen and what stands in it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/toolkit/View.h"
#include "platform/toolkit/ViewController.h"

namespace wifi_profile::toolkit {

enum class BarButtonStyle { plain = 0 };
enum class BarPosition { topAttached = 3 };

// A button in a bar. Main thread only.
class BarButtonItem final {
 public:
  BarButtonItem(std::string title, BarButtonStyle style, std::function<void()> action)
      : title_(std::move(title)), style_(style), action_(std::move(action)) {}
  const std::string& title() const { return title_; }
  BarButtonStyle style() const { return style_; }

  bool isEnabled() const { return enabled_; }
  // Every call is told to the screen, also one that changes nothing.
  void setEnabled(bool enabled);

  // What a person does. Nothing while it is disabled.
  void tap() const;

 private:
  std::string title_;
  BarButtonStyle style_;
  std::function<void()> action_;
  bool enabled_ = true;
};

// One item of a bar: its title and its right-hand button. Main thread only.
class NavigationItem final {
 public:
  explicit NavigationItem(std::string title) : title_(std::move(title)) {}
  const std::string& title() const { return title_; }

  // null: no button.
  const std::shared_ptr<BarButtonItem>& rightBarButtonItem() const { return rightBarButtonItem_; }
  // The screen is told when a button goes.
  void setRightBarButtonItem(std::shared_ptr<BarButtonItem> button);

 private:
  std::string title_;
  std::shared_ptr<BarButtonItem> rightBarButtonItem_;
};

// Answers a bar's questions.
class NavigationBarDelegate {
 public:
  // A bar that is attached to the top has its background reach up under the status bar.
  virtual BarPosition positionForBar() const = 0;

 protected:
  ~NavigationBarDelegate() = default;
};

// Main thread only.
class NavigationBar final : public View {
 public:
  using View::View;

  // A locked bar refuses to be changed by others than its owner.
  bool isLocked() const { return locked_; }
  void setLocked(bool locked) { locked_ = locked; }

  // Not kept alive.
  std::shared_ptr<NavigationBarDelegate> delegate() const { return delegate_.lock(); }
  void setDelegate(std::weak_ptr<NavigationBarDelegate> delegate) {
    delegate_ = std::move(delegate);
  }

  const std::vector<std::shared_ptr<NavigationItem>>& items() const { return items_; }
  void setItems(std::vector<std::shared_ptr<NavigationItem>> items) { items_ = std::move(items); }

 private:
  bool locked_ = true;
  std::weak_ptr<NavigationBarDelegate> delegate_;
  std::vector<std::shared_ptr<NavigationItem>> items_;
};

// Holds a controller under a navigation bar, and makes that bar: as wide as the controller's view,
// 44 points high. The controller is not kept alive.
class NavigationContainer final {
 public:
  explicit NavigationContainer(ViewController& root);
  const std::shared_ptr<NavigationBar>& navigationBar() const { return navigationBar_; }

 private:
  std::shared_ptr<NavigationBar> navigationBar_;
};

}  // namespace wifi_profile::toolkit
