// A row of the network picker.
#pragma once

#include <string>
#include <utility>

#include "diagnostic/platform/toolkit/TableViewCell.h"

namespace wifi_profile {

// Has a title and a detail label, regardless of the requested style.
class WiFiTableViewCell final : public toolkit::TableViewCell {
 public:
  WiFiTableViewCell(toolkit::CellStyle /*style*/, std::string reuseIdentifier)
      : TableViewCell(toolkit::CellStyle::titleAndDetail, std::move(reuseIdentifier)) {}
};

}  // namespace wifi_profile
