// The layout pass: solves the constraints of a view and its descendants into frames.

#include <algorithm>
#include <unordered_map>

#include "diagnostic/platform/toolkit/LayoutSolver.h"
#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/ViewController.h"

namespace wifi_profile::toolkit {
namespace {

constexpr float kCompressionResistance = 750;

class Pass {
 public:
  // The root keeps its frame. Its top left corner is the origin of the coordinates.
  explicit Pass(View& root) { gather(root, {}); }

  void solveIntoFrames() {
    std::vector<BoxConstraint> wishes;
    for (int box = 0; box < count(); ++box) addOwnWishes(box, wishes);
    for (const View* const view : views_) {
      for (const LayoutConstraint& constraint : view->constraints()) {
        if (const auto wish = wishOf(constraint)) wishes.push_back(*wish);
      }
    }
    const std::vector<Rect> solved = solvedFrames(frames_, wishes);
    for (std::size_t box = 1; box < views_.size(); ++box) {
      if (views_[box]->translatesAutoresizingMaskIntoConstraints()) continue;
      Rect frame = solved[box];
      const Point parent = solved[static_cast<std::size_t>(parents_[box])].origin;
      frame.origin = {frame.origin.x - parent.x, frame.origin.y - parent.y};
      views_[box]->setFrame(frame);
    }
  }

 private:
  int count() const { return static_cast<int>(views_.size()); }

  // Parents come before their children.
  void gather(View& view, Point parentOrigin, int parent = kNoBox) {
    const int box = count();
    numbers_[&view] = box;
    views_.push_back(&view);
    parents_.push_back(parent);
    Rect frame = view.frame();
    if (parent != kNoBox) {
      frame.origin = {frame.origin.x + parentOrigin.x, frame.origin.y + parentOrigin.y};
    } else {
      frame.origin = {};
    }
    frames_.push_back(frame);
    for (const auto& subview : view.subviews()) gather(*subview, frame.origin, box);
  }

  void addOwnWishes(int box, std::vector<BoxConstraint>& wishes) const {
    using A = LayoutAttribute;
    const auto place = static_cast<std::size_t>(box);
    const View& view = *views_[place];
    const auto wish = [&](A attribute, LayoutRelation relation, double value, float priority) {
      wishes.push_back({.first = box,
                        .firstAttribute = attribute,
                        .relation = relation,
                        .constant = value,
                        .priority = priority});
    };
    const Rect& frame = frames_[place];
    if (box == 0 || view.translatesAutoresizingMaskIntoConstraints()) {
      wish(A::leading, LayoutRelation::equal, frame.origin.x, kRequiredPriority);
      wish(A::top, LayoutRelation::equal, frame.origin.y, kRequiredPriority);
      wish(A::width, LayoutRelation::equal, frame.size.width, kRequiredPriority);
      wish(A::height, LayoutRelation::equal, frame.size.height, kRequiredPriority);
      return;
    }
    const auto content = view.intrinsicContentSize();
    if (!content) return;
    const auto [horizontal, vertical] = view.huggingPriority();
    if (content->width >= 0) {
      wish(A::width, LayoutRelation::lessThanOrEqual, content->width, horizontal);
      wish(A::width, LayoutRelation::greaterThanOrEqual, content->width, kCompressionResistance);
    }
    if (content->height >= 0) {
      wish(A::height, LayoutRelation::lessThanOrEqual, content->height, vertical);
      wish(A::height, LayoutRelation::greaterThanOrEqual, content->height, kCompressionResistance);
    }
  }

  // Empty if the constraint names a view that is not in the hierarchy.
  std::optional<BoxConstraint> wishOf(const LayoutConstraint& constraint) const {
    const auto first = numbers_.find(constraint.first);
    const auto second = numbers_.find(constraint.second);
    if (first == numbers_.end()) return std::nullopt;
    if (constraint.second && second == numbers_.end()) return std::nullopt;
    return BoxConstraint{.first = first->second,
                         .firstAttribute = constraint.firstAttribute,
                         .relation = constraint.relation,
                         .second = constraint.second ? second->second : kNoBox,
                         .secondAttribute = constraint.secondAttribute,
                         .multiplier = constraint.multiplier,
                         .constant = constraint.constant,
                         .priority = constraint.priority};
  }

  std::vector<View*> views_;
  std::vector<int> parents_;
  std::vector<Rect> frames_;  // in the root's coordinates
  std::unordered_map<const View*, int> numbers_;
};

}  // namespace

void ViewController::layOut() {
  checkMainThread("ViewController::layOut");
  updateViewConstraints();
  Pass(*view()).solveIntoFrames();
}

}  // namespace wifi_profile::toolkit
