// The grouped table of the network picker.
#pragma once

#include "platform/toolkit/View.h"

namespace wifi_profile::toolkit {

class TableView final : public View {
 public:
  using View::View;
};

}  // namespace wifi_profile::toolkit
