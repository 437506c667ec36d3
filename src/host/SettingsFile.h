// What the person and the machine's owner have set. docs/SETTINGS.md describes the files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "checks/Settings.h"
#include "devices/linux/Targets.h"
#include "host/Files.h"

namespace wifi_profile {

struct ToolSettings {
  checks::Settings checks = checks::defaultSettings();
  machine::Targets targets;

  bool operator==(const ToolSettings&) const = default;
};

// The machine's file, then the person's, which says the last word: /etc/wifi-profile/settings.json
// and wifi-profile/settings.json in XDG_CONFIG_HOME, or else in ~/.config.
std::vector<std::string> settingsFiles();

// Changes the settings by what the text of `file` sets. A problem leaves some of them changed.
std::optional<Problem> addSettings(std::string_view text, const std::string& file,
                                   ToolSettings& settings);

// The defaults, changed by what each of the files sets; files that are not there set nothing.
std::variant<ToolSettings, Problem> readSettingsFiles(const std::vector<std::string>& files);

// Whether a text is the address of a page: http or https, a host, a port of 1 to 65535 if there is
// one, no blanks.
bool isWebAddress(const std::string& text);

}  // namespace wifi_profile
