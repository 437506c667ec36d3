// Layout constraints between views.
#pragma once

namespace wifi_profile::toolkit {

enum class LayoutAttribute {
  notAnAttribute,
  leading,
  trailing,
  top,
  bottom,
  width,
  height,
  centerX,
  centerY
};
enum class LayoutRelation { equal, greaterThanOrEqual };

inline constexpr float kRequiredPriority = 1000;

class View;

// first.firstAttribute (relation) second.secondAttribute + constant, in points. The pointers do not
// keep the views alive: the views belong to the screen that holds the constraint.
struct LayoutConstraint {
  const View* first = nullptr;
  LayoutAttribute firstAttribute = LayoutAttribute::notAnAttribute;
  LayoutRelation relation = LayoutRelation::equal;
  const View* second = nullptr;  // null: the constant alone
  LayoutAttribute secondAttribute = LayoutAttribute::notAnAttribute;
  double constant = 0;
  float priority = kRequiredPriority;  // 0 to 1000; stored only
  bool operator==(const LayoutConstraint&) const = default;
};

// Content-hugging priorities along both axes, 0 to 1000: how strongly a view resists being larger
// than its content.
struct HuggingPriority {
  float horizontal = 250;
  float vertical = 250;
  bool operator==(const HuggingPriority&) const = default;
};

}  // namespace wifi_profile::toolkit
