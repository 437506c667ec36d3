// The cell that supplies the content of a table row.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "diagnostic/platform/toolkit/Image.h"
#include "diagnostic/platform/toolkit/Label.h"
#include "diagnostic/platform/toolkit/View.h"

namespace wifi_profile::toolkit {

enum class CellStyle {
  plain = 0,
  titleAndDetail = 1,  // a title label on the left, a detail label on the right
};

// Cells are reused: a dequeued cell is in the state in which its last row left it. Main thread
// only.
class TableViewCell : public View {
 public:
  TableViewCell(CellStyle style, std::string reuseIdentifier)
      : style_(style), reuseIdentifier_(std::move(reuseIdentifier)) {}

  CellStyle style() const { return style_; }
  const std::string& reuseIdentifier() const { return reuseIdentifier_; }
  Label& textLabel() { return *textLabel_; }
  Label& detailTextLabel() { return *detailTextLabel_; }

  ImageRef image;  // in front of the title; null: no image
  // Whether the user can interact with the row.
  bool userInteractionEnabled = true;

 private:
  CellStyle style_;
  std::string reuseIdentifier_;
  std::shared_ptr<Label> textLabel_ = std::make_shared<Label>();
  std::shared_ptr<Label> detailTextLabel_ = std::make_shared<Label>();
};

}  // namespace wifi_profile::toolkit
