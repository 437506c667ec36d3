// What a screen draws: the parts of a controller's view, and the texts around them.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/toolkit/Label.h"
#include "platform/toolkit/NavigationBar.h"
#include "platform/toolkit/ProgressView.h"
#include "platform/toolkit/Spinner.h"
#include "platform/toolkit/TableView.h"
#include "screens/PersonScreen.h"

namespace wifi_profile {

// The frontmost subview of a kind; null: none.
template <class Kind>
std::shared_ptr<Kind> subviewOf(const toolkit::View& view) {
  std::shared_ptr<Kind> found;
  for (const auto& subview : view.subviews()) {
    if (auto match = std::dynamic_pointer_cast<Kind>(subview)) found = std::move(match);
  }
  return found;
}

// null: it is not on the screen.
struct Content {
  std::shared_ptr<toolkit::NavigationBar> bar;
  std::shared_ptr<toolkit::NavigationItem> item;  // the bar's last one
  std::shared_ptr<toolkit::TableView> table;
  std::shared_ptr<toolkit::Label> label;
  std::shared_ptr<toolkit::ProgressView> progress;
};
Content contentOf(const toolkit::View& view);

// A text of the installed string table, with what is to stand for parts of it: {"{done}", "3"}.
using Replacements = std::initializer_list<std::pair<std::string_view, std::string_view>>;
std::string screenText(std::string_view key, Replacements replacements = {});

// One sentence on an empty list; empty: there is nothing to say.
std::string emptyListText(EmptyList::Why why);

}  // namespace wifi_profile
