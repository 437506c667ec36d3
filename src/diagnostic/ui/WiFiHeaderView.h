// The header of a section of the network picker: a text and an optional spinner next to it.
#pragma once

#include <memory>

#include "diagnostic/platform/toolkit/Label.h"
#include "diagnostic/platform/toolkit/Spinner.h"
#include "diagnostic/platform/toolkit/View.h"

namespace wifi_profile {

// Changes its width with that of its superview. Main thread only.
class WiFiHeaderView final : public toolkit::View {
 public:
  static std::shared_ptr<WiFiHeaderView> initWithFrame(toolkit::Rect frame, const TextRef& text,
                                                       bool showSpinner);

  const std::shared_ptr<toolkit::Label>& headerText() const { return headerText_; }
  // Null if it was created without a spinner.
  const std::shared_ptr<toolkit::Spinner>& spinner() const { return spinner_; }

  void layoutSubviews() override;

 private:
  using View::View;
  double leftMargin() const;

  std::shared_ptr<toolkit::Label> headerText_ = std::make_shared<toolkit::Label>();
  std::shared_ptr<toolkit::Spinner> spinner_;
};

}  // namespace wifi_profile
