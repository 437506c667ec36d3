// Views as plain state: a tree of rectangles with constraints, and no pixels. Main thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace wifi_profile::toolkit {

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  double width = 0;
  double height = 0;
  bool operator==(const Size&) const = default;
};

// In points, origin at the top left.
struct Rect {
  Point origin;
  Size size;
  bool operator==(const Rect&) const = default;
};

// Grey levels from 0 (black) to 1 (white).
struct Color {
  double white = 0;
  double alpha = 1;
  bool operator==(const Color&) const = default;
};
inline constexpr Color kBlack{0, 1};
inline constexpr Color kWhite{1, 1};

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

// first.firstAttribute (relation) multiplier x second.secondAttribute + constant, in points.
// The views named are not kept alive; they are those of the screen that holds the constraint.
struct LayoutConstraint {
  const View* first = nullptr;
  LayoutAttribute firstAttribute = LayoutAttribute::notAnAttribute;
  LayoutRelation relation = LayoutRelation::equal;
  const View* second = nullptr;  // none: the constant alone
  LayoutAttribute secondAttribute = LayoutAttribute::notAnAttribute;
  double multiplier = 1;
  double constant = 0;
  float priority = kRequiredPriority;  // 0 to 1000
};

// Content-hugging priorities along both axes, 0 to 1000.
struct HuggingPriority {
  float horizontal = 250;
  float vertical = 250;
  bool operator==(const HuggingPriority&) const = default;
};

class ViewController;

// A rectangle that may hold others. A view keeps its subviews alive, not its superview.
class View : public std::enable_shared_from_this<View> {
 public:
  View() = default;
  explicit View(Rect frame) : frame_(frame) {}
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  const Rect& frame() const { return frame_; }
  void setFrame(Rect frame) { frame_ = frame; }
  Point center() const;
  void setCenter(Point center);

  const Color& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(Color color) { backgroundColor_ = color; }
  bool isOpaque() const { return opaque_; }
  void setOpaque(bool opaque) { opaque_ = opaque; }
  int contentMode() const { return contentMode_; }
  void setContentMode(int mode) { contentMode_ = mode; }
  const HuggingPriority& huggingPriority() const { return huggingPriority_; }
  void setHuggingPriority(HuggingPriority priority) { huggingPriority_ = priority; }
  bool translatesAutoresizingMaskIntoConstraints() const { return translatesAutoresizingMask_; }
  void setTranslatesAutoresizingMaskIntoConstraints(bool on) { translatesAutoresizingMask_ = on; }

  // Back to front.
  const std::vector<std::shared_ptr<View>>& subviews() const { return subviews_; }
  std::shared_ptr<View> superview() const { return superview_.lock(); }

  // Puts `view` in front of the other subviews, taking it from where it was.
  void addSubview(const std::shared_ptr<View>& view);
  void bringSubviewToFront(const std::shared_ptr<View>& view);
  // Does nothing where there is no superview.
  void removeFromSuperview();

  // In the order in which they were added.
  const std::vector<LayoutConstraint>& constraints() const { return constraints_; }
  // Told to the screen.
  void addConstraint(const LayoutConstraint& constraint);

  // Asks the screen for a layout pass of the view's controller. Nothing without a controller.
  void setNeedsUpdateConstraints();

 private:
  friend class ViewController;
  Rect frame_;
  Color backgroundColor_ = {0, 0};
  bool opaque_ = true;
  int contentMode_ = 0;
  HuggingPriority huggingPriority_;
  bool translatesAutoresizingMask_ = true;
  std::vector<std::shared_ptr<View>> subviews_;
  std::weak_ptr<View> superview_;
  std::vector<LayoutConstraint> constraints_;
  std::weak_ptr<ViewController> controller_;
};

}  // namespace wifi_profile::toolkit
