#include "diagnostic/ui/WiFiHeaderView.h"

#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile {
namespace {

// Points.
constexpr double kTextSize = 13;
constexpr double kTextTop = 10;
constexpr double kSpinnerTop = 8;
constexpr double kGapBeforeSpinner = 10;
constexpr double kMarginBesideBackground = 15;
constexpr double kUsualMargin = 18;
constexpr toolkit::Color kGrey{0.4, 1.0};

}  // namespace

std::shared_ptr<WiFiHeaderView> WiFiHeaderView::initWithFrame(toolkit::Rect frame,
                                                              const TextRef& text,
                                                              bool showSpinner) {
  std::shared_ptr<WiFiHeaderView> header(new WiFiHeaderView(frame));
  header->setBackgroundColor(toolkit::kClear);
  header->setResizing({.flexibleWidth = true});
  toolkit::Label& label = *header->headerText_;
  label.systemFontSize = kTextSize;
  label.textColor = kGrey;
  label.setBackgroundColor(toolkit::kClear);
  label.text = text;
  header->addSubview(header->headerText_);
  if (showSpinner) {
    header->spinner_ = std::make_shared<toolkit::Spinner>(toolkit::SpinnerStyle::smallGrey);
    header->addSubview(header->spinner_);
  }
  header->layoutSubviews();
  return header;
}

double WiFiHeaderView::leftMargin() const {
  const auto table = std::dynamic_pointer_cast<toolkit::TableView>(superview());
  const auto inset = table ? table->backgroundInset() : std::nullopt;
  return inset ? *inset + kMarginBesideBackground : kUsualMargin;
}

void WiFiHeaderView::layoutSubviews() {
  View::layoutSubviews();
  const double margin = leftMargin();
  headerText_->sizeToFit();
  const auto [width, height] = headerText_->frame().size;
  if (spinner_) {
    spinner_->setFrame({{margin + width + kGapBeforeSpinner, kSpinnerTop}, {height, height}});
  }
  headerText_->setFrame({{margin, kTextTop}, {width, height}});
}

}  // namespace wifi_profile
