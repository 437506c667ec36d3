// Views as plain state: a tree of rectangles with constraints, and no pixels. Main thread only.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "diagnostic/platform/toolkit/Constraint.h"
#include "diagnostic/platform/toolkit/Geometry.h"

namespace wifi_profile::toolkit {

// Grey levels from 0 (black) to 1 (white).
struct Color {
  double white = 0;
  double alpha = 1;
  bool operator==(const Color&) const = default;
};
inline constexpr Color kBlack{0, 1};
inline constexpr Color kWhite{1, 1};
inline constexpr Color kClear{0, 0};

// Which dimensions change with those of the superview.
struct Resizing {
  bool flexibleWidth = false;
  bool flexibleHeight = false;
  bool operator==(const Resizing&) const = default;
};

class ViewController;

// A rectangle that may contain subviews. A view keeps its subviews alive, but not its superview.
// The frame is in the coordinates of the superview.
class View : public std::enable_shared_from_this<View> {
 public:
  View() = default;
  explicit View(Rect frame) : frame_(frame) {}
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  const Rect& frame() const { return frame_; }
  // A new size resizes the subviews according to their `resizing` and lays them out.
  void setFrame(Rect frame);
  Point center() const;
  void setCenter(Point center);
  const Resizing& resizing() const { return resizing_; }
  void setResizing(Resizing resizing) { resizing_ = resizing; }

  const Color& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(Color color) { backgroundColor_ = color; }
  bool isOpaque() const { return opaque_; }
  void setOpaque(bool opaque) { opaque_ = opaque; }
  int contentMode() const { return contentMode_; }
  void setContentMode(int mode) { contentMode_ = mode; }
  const HuggingPriority& huggingPriority() const { return huggingPriority_; }
  void setHuggingPriority(HuggingPriority priority) { huggingPriority_ = priority; }

  // True: the frame stays as set. False: the frame comes from constraints alone.
  bool translatesAutoresizingMaskIntoConstraints() const { return translatesAutoresizingMask_; }
  void setTranslatesAutoresizingMaskIntoConstraints(bool on) { translatesAutoresizingMask_ = on; }

  // Returns the size that the content needs. Empty if the view has no intrinsic size. A negative
  // dimension: no intrinsic size along that axis.
  virtual std::optional<Size> intrinsicContentSize() const { return std::nullopt; }

  // Back to front.
  const std::vector<std::shared_ptr<View>>& subviews() const { return subviews_; }
  std::shared_ptr<View> superview() const { return superview_.lock(); }

  // Adds `view` in front of the other subviews and removes it from its previous superview. A
  // shared_ptr must already own the new superview.
  void addSubview(const std::shared_ptr<View>& view);
  void bringSubviewToFront(const std::shared_ptr<View>& view);
  // Does nothing if there is no superview.
  void removeFromSuperview();

  // Positions the subviews. Called after the size has changed.
  virtual void layoutSubviews() {}

  // In the order in which they were added.
  const std::vector<LayoutConstraint>& constraints() const { return constraints_; }
  // Reports the constraint to the screen.
  void addConstraint(const LayoutConstraint& constraint);

  // Requests a layout pass of the controller of the view. Does nothing without a controller.
  void setNeedsUpdateConstraints();

 protected:
  virtual void wasRemovedFromSuperview() {}

 private:
  friend class ViewController;
  void resizeSubviews(Size before);
  std::shared_ptr<View> leaveSuperview();

  Rect frame_;
  Resizing resizing_;
  Color backgroundColor_ = kClear;
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
