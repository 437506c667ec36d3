#include "app/Content.h"

#include "diagnostic/platform/StringTable.h"

namespace wifi_profile::app {

Content contentOf(const toolkit::View& view) {
  Content content{.bar = subviewOf<toolkit::NavigationBar>(view),
                  .item = nullptr,
                  .table = subviewOf<toolkit::TableView>(view),
                  .label = subviewOf<toolkit::Label>(view),
                  .progress = subviewOf<toolkit::ProgressView>(view)};
  if (content.bar && !content.bar->items().empty()) content.item = content.bar->items().back();
  return content;
}

std::string screenText(std::string_view key, Replacements replacements) {
  std::string text = localizedString(key);
  for (const auto& [part, replacement] : replacements) {
    if (const auto place = text.find(part); place != std::string::npos) {
      text.replace(place, part.size(), replacement);
    }
  }
  return text;
}

std::string emptyListText(EmptyList::Why why) {
  switch (why) {
    case EmptyList::Why::notKnownYet:
      return {};
    case EmptyList::Why::noneInRange:
      return screenText("NO_NETWORKS");
    case EmptyList::Why::noOtherInRange:
      return screenText("NO_OTHER_NETWORKS");
    case EmptyList::Why::onlyHiddenInRange:
      return screenText("ONLY_HIDDEN_NETWORKS");
    case EmptyList::Why::scanFailed:
      return screenText("SCAN_FAILED");
    case EmptyList::Why::radioOff:
      return screenText("RADIO_OFF");
    case EmptyList::Why::powerOnFailed:
      return screenText("POWER_ON_FAILED");
  }
  return {};
}

}  // namespace wifi_profile::app
