#include "app/cli/PersonFollower.h"

#include <algorithm>
#include <array>

#include "diagnostic/platform/Text.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile::cli {
namespace {

// Maps a trace event to the action of the person that causes it.
struct Deed {
  std::string_view event;
  std::string_view op;
  scenario::Action action;
};
constexpr std::array kDeeds{
    Deed{"ui.table", "deselect", scenario::Action::tapRow},
    Deed{"ui.button", "removed", scenario::Action::tapNext},
    Deed{"ui.refresh", "begin", scenario::Action::pullToRefresh},
    Deed{"ui.alert", "text", scenario::Action::type},
    Deed{"ui.alert", "action", scenario::Action::tapAction},
};

std::string_view fieldText(const Trace::Fields& fields, std::string_view key) {
  for (const auto& [name, value] : fields) {
    if (name != key) continue;
    const auto text = as<Text>(value);
    return text ? std::string_view(text->string()) : std::string_view();
  }
  return {};
}

}  // namespace

void PersonFollower::event(std::string_view name, const Fields& fields) {
  if (name == "service.request") {
    const auto test = testNamed(fieldText(fields, "test"));
    if (test) run_.showTests(std::string(catalogueTest(*test).label));
  } else if (name == "ui.progress") {
    run_.showTests({});
  } else {
    const std::string_view op = fieldText(fields, "op");
    const auto deed = std::find_if(kDeeds.begin(), kDeeds.end(), [&](const Deed& candidate) {
      return candidate.event == name && candidate.op == op;
    });
    if (deed != kDeeds.end()) run_.personDid(deed->action);
  }
}

}  // namespace wifi_profile::cli
