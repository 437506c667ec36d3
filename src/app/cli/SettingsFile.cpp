#include "app/cli/SettingsFile.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>

#include "analysis/facts/IpAddresses.h"
#include "app/cli/Files.h"
#include "devices/CheckSettings.h"
#include "devices/linux/probes/Http.h"
#include "runtime/JsonFields.h"
#include "runtime/JsonReader.h"

namespace wifi_profile::cli {
namespace {

using runtime::FieldsReader;
using runtime::ValueReader;

constexpr std::string_view kName = "wifi-profile/settings.json";
// RFC 1035, 2.3.4. IP addresses are shorter.
constexpr std::size_t kLongestHost = 253;
constexpr std::size_t kLongestLabel = 63;

bool isPlain(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7f'; });
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isLabel(std::string_view label) {
  return !label.empty() && label.size() <= kLongestLabel &&
         std::all_of(label.begin(), label.end(), [](char c) {
           return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' ||
                  c == '_';
         });
}

// Returns true for labels separated by dots, with an optional final dot. The last label is not a
// number (RFC 3696, 2): a text that ends in one is a malformed IP address.
bool isHostName(std::string_view name) {
  if (name.size() > kLongestHost) return false;
  if (name.ends_with('.')) name.remove_suffix(1);
  while (true) {
    const std::size_t dot = name.find('.');
    const std::string_view label = name.substr(0, dot);
    if (!isLabel(label)) return false;
    if (dot == std::string_view::npos) return !std::all_of(label.begin(), label.end(), isDigit);
    name.remove_prefix(dot + 1);
  }
}

void takeHost(FieldsReader& fields, std::string_view key, std::string& host) {
  fields.take(key, [&](const ValueReader& field) {
    host = field.text();
    if (facts::ipv4KindOf(host) || facts::ipv6KindOf(host) || isHostName(host)) return;
    field.fail("the name or the numeric address of a host");
  });
}

void takeWebAddress(FieldsReader& fields, std::string_view key, std::string& address,
                    std::string_view kind) {
  fields.take(key, [&](const ValueReader& field) {
    address = field.text();
    if (isWebAddress(address) && address.starts_with(kind)) return;
    field.fail(fmt::format("an address such as {}",
                           kind == "http://" ? "http://example.com/" : "https://example.com/"));
  });
}

void readSettings(const ValueReader& document, ToolSettings& settings) {
  document.object([&](FieldsReader& fields) {
    fields.take("checks", [&](const ValueReader& field) {
      devices::readCheckSettings(field, settings.checks);
    });
    fields.take("internet", [&](const ValueReader& internet) {
      internet.object([&](FieldsReader& parts) {
        takeHost(parts, "pingHost", settings.targets.pingHost);
        takeHost(parts, "name", settings.targets.name);
        takeWebAddress(parts, "portalUrl", settings.targets.portalUrl, "http://");
        takeText(parts, "portalText", settings.targets.portalText);
      });
    });
    fields.take("site", [&](const ValueReader& site) {
      site.object([&](FieldsReader& parts) {
        takeWebAddress(parts, "url", settings.targets.siteUrl, "http");
        takeText(parts, "text", settings.targets.siteText);
      });
    });
  });
}

}  // namespace

// The URL parser that is used for fetching accepts more than a settings file should contain, such
// as one slash instead of two.
bool isWebAddress(const std::string& text) {
  for (const std::string_view kind : {"http://", "https://"}) {
    if (!text.starts_with(kind)) continue;
    const auto parts = linux::probes::partsOf(text);
    const bool hasHost = text.size() > kind.size() && text[kind.size()] != '/';
    return hasHost && isPlain(text) && parts && parts->port != "0";
  }
  return false;
}

std::vector<std::string> settingsFiles() {
  std::vector<std::string> files{fmt::format("/etc/{}", kName)};
  const char* const config = std::getenv("XDG_CONFIG_HOME");
  const char* const home = std::getenv("HOME");
  if (config && *config == '/') {  // a relative path is ignored
    files.push_back(fmt::format("{}/{}", config, kName));
  } else if (home && *home != '\0') {
    files.push_back(fmt::format("{}/.config/{}", home, kName));
  }
  return files;
}

Status addSettings(std::string_view text, const std::string& file, ToolSettings& settings) {
  const auto document = runtime::readJson(text, file);
  if (!document) return document.error();
  return runtime::readDocument(*document, file,
                               [&](const ValueReader& value) { readSettings(value, settings); });
}

Result<ToolSettings> readSettingsFiles(const std::vector<std::string>& files) {
  ToolSettings settings;
  for (const std::string& file : files) {
    std::error_code notThere;
    if (!std::filesystem::exists(file, notThere)) continue;
    const auto content = readFile(file);
    if (!content) return content.error();
    const Status added = addSettings(*content, file, settings);
    if (!added) return added.error();
  }
  return settings;
}

}  // namespace wifi_profile::cli
