#include "host/ScreenState.h"

#include "platform/toolkit/Label.h"
#include "platform/toolkit/NavigationBar.h"
#include "platform/toolkit/ProgressView.h"

namespace wifi_profile {

Trace::Fields screenState(WiFiProfileViewController& controller) {
  const auto item = controller.navigationItem();
  const auto label = controller.mainLabel();
  const auto bar = controller.progressView();
  return {
      {"title", item ? makeText(item->title()) : nullptr},
      {"next", nullptr},
      {"selected", nullptr},
      {"networks", nullptr},
      {"addresses", nullptr},
      {"spinner", Number::withBool(false)},
      {"refreshing", Number::withBool(false)},
      {"alert", nullptr},
      {"label", label ? makeText(label->text) : nullptr},
      {"progress", bar ? Number::withDouble(bar->progress()) : nullptr},
  };
}

}  // namespace wifi_profile
