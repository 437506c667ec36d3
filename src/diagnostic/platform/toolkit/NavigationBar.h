// The bar at the top of a screen, and its items.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "diagnostic/platform/toolkit/View.h"
#include "diagnostic/platform/toolkit/ViewController.h"

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
  // Reports every call to the screen, even one that changes nothing.
  void setEnabled(bool enabled);

  // User action. Does nothing while the button is disabled.
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

  // Null: no button.
  const std::shared_ptr<BarButtonItem>& rightBarButtonItem() const { return rightBarButtonItem_; }
  // Reports the removal of a button to the screen.
  void setRightBarButtonItem(std::shared_ptr<BarButtonItem> button);

 private:
  std::string title_;
  std::shared_ptr<BarButtonItem> rightBarButtonItem_;
};

// Supplies the position of a bar.
class NavigationBarDelegate {
 public:
  // If the bar is attached to the top, its background extends up under the status bar.
  virtual BarPosition positionForBar() const = 0;

 protected:
  ~NavigationBarDelegate() = default;
};

// Main thread only.
class NavigationBar final : public View {
 public:
  using View::View;

  // Only the owner of a locked bar may change it.
  bool isLocked() const { return locked_; }
  void setLocked(bool locked) { locked_ = locked; }

  // The bar does not keep the delegate alive.
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

// Puts a controller under a navigation bar and creates that bar: as wide as the view of the
// controller, 44 points high. Does not keep the controller alive.
class NavigationContainer final {
 public:
  explicit NavigationContainer(ViewController& root);
  const std::shared_ptr<NavigationBar>& navigationBar() const { return navigationBar_; }

 private:
  std::shared_ptr<NavigationBar> navigationBar_;
};

}  // namespace wifi_profile::toolkit
