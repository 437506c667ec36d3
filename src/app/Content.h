// What a screen draws: the parts of a controller's view, and texts.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "app/PersonScreen.h"
#include "diagnostic/platform/toolkit/Label.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "diagnostic/platform/toolkit/Spinner.h"
#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile::app {

// Returns the frontmost subview of a kind; null: none.
template <class Kind>
std::shared_ptr<Kind> subviewOf(const toolkit::View& view) {
  std::shared_ptr<Kind> found;
  for (const auto& subview : view.subviews()) {
    if (auto match = std::dynamic_pointer_cast<Kind>(subview)) found = std::move(match);
  }
  return found;
}

// The parts of a view. A null part is not on the screen.
struct Content {
  std::shared_ptr<toolkit::NavigationBar> bar;
  std::shared_ptr<toolkit::NavigationItem> item;  // the bar's last item
  std::shared_ptr<toolkit::TableView> table;
  std::shared_ptr<toolkit::Label> label;
  std::shared_ptr<toolkit::ProgressView> progress;
};
Content contentOf(const toolkit::View& view);

// Returns a text of the installed string table with its placeholders replaced, such as {"{done}",
// "3"}.
using Replacements = std::initializer_list<std::pair<std::string_view, std::string_view>>;
std::string screenText(std::string_view key, Replacements replacements = {});

// Returns one sentence that explains an empty list; empty: there is no explanation.
std::string emptyListText(EmptyList::Why why);

}  // namespace wifi_profile::app
