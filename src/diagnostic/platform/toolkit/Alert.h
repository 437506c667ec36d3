// An alert over a screen: a message, optional text fields, and actions.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "diagnostic/platform/Text.h"

namespace wifi_profile::toolkit {

class Alert;
class ViewController;

enum class ActionStyle { standard = 0, cancel = 1 };

// Main thread only.
class AlertAction final {
 public:
  // `handler` may be empty.
  AlertAction(std::string title, ActionStyle style, std::function<void()> handler)
      : title_(std::move(title)), style_(style), handler_(std::move(handler)) {}
  const std::string& title() const { return title_; }
  ActionStyle style() const { return style_; }
  bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled) { enabled_ = enabled; }

 private:
  friend class Alert;
  std::string title_;
  ActionStyle style_;
  std::function<void()> handler_;
  bool enabled_ = true;
};

// Main thread only.
struct TextField final {
  std::string text;
  std::string placeholder;
  std::function<void()> onEditingChanged;  // called after every edit
};

// An alert without a title, in the middle of the screen. Its controller keeps it alive until it is
// dismissed. A handler must not own the alert or its controller, which is alive when the handler of
// an action runs. Main thread only.
class Alert final : public std::enable_shared_from_this<Alert> {
 public:
  explicit Alert(std::string message) : message_(std::move(message)) {}

  const std::string& message() const { return message_; }

  // In the order in which they were added.
  const std::vector<std::shared_ptr<AlertAction>>& actions() const { return actions_; }
  void addAction(std::shared_ptr<AlertAction> action) { actions_.push_back(std::move(action)); }
  const std::vector<std::shared_ptr<TextField>>& textFields() const { return textFields_; }
  void addTextField(std::shared_ptr<TextField> field) { textFields_.push_back(std::move(field)); }

  // User action: replaces the content of the first text field, in one edit.
  void type(const std::string& text);
  // User action: dismisses the alert, then calls the handler of `action`, which must belong to this
  // alert. Does nothing if the action is disabled or the alert is not presented.
  void tap(const AlertAction& action);

 private:
  friend class ViewController;
  void dismiss();
  std::string message_;
  std::vector<std::shared_ptr<AlertAction>> actions_;
  std::vector<std::shared_ptr<TextField>> textFields_;
  std::weak_ptr<ViewController> presenter_;
};

}  // namespace wifi_profile::toolkit
