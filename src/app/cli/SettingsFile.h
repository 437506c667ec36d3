// Reads the settings of the user and of the system. docs/SETTINGS.md describes the files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/checks/Settings.h"
#include "devices/Targets.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile::cli {

struct ToolSettings {
  checks::Settings checks = checks::defaultSettings();
  devices::Targets targets;

  bool operator==(const ToolSettings&) const = default;
};

// Returns the system's file, then the user's, which takes precedence:
// /etc/wifi-profile/settings.json, and wifi-profile/settings.json in XDG_CONFIG_HOME or, without
// it, in ~/.config.
std::vector<std::string> settingsFiles();

// Applies the content `text` of `file` to the settings. On an error some settings may have
// changed.
Status addSettings(std::string_view text, const std::string& file, ToolSettings& settings);

// Returns the defaults, changed by each of the files in order. Missing files are skipped.
Result<ToolSettings> readSettingsFiles(const std::vector<std::string>& files);

// Returns true if the text is the address of a page: http or https, a host, optionally a port from
// 1 to 65535, no blanks.
bool isWebAddress(const std::string& text);

}  // namespace wifi_profile::cli
