#include "devices/linux/Coexistence.h"

#include <cerrno>
#include <fstream>
#include <system_error>

namespace wifi_profile::linux {

using facts::Coexistence;

namespace {

namespace fs = std::filesystem;

// The names that drivers give the coexistence parameter.
constexpr const char* kParameters[] = {"bt_coex_active", "btcoex_enable", "btcoex"};

// Returns the name that a symbolic link in sysfs ends with; empty if there is no link.
std::string linkedName(const fs::path& link) {
  std::error_code error;
  const fs::path target = fs::read_symlink(link, error);
  return error ? std::string() : target.filename().string();
}

// Kernel booleans are Y and N; numbers are modes, of which 0 is off.
std::optional<bool> flagFrom(const std::string& text) {
  if (text == "Y") return true;
  if (text == "N") return false;
  if (text.empty() || text.find_first_not_of("-0123456789") != std::string::npos) {
    return std::nullopt;
  }
  return text.find_first_not_of("-0") != std::string::npos;
}

}  // namespace

Result<facts::Coexistence> readCoexistence(const std::string& interface, const fs::path& sysfs) {
  const fs::path driverLink =
      sysfs / "class/net" / fs::path(interface).filename() / "device/driver";
  const std::string driver = linkedName(driverLink);
  if (driver.empty()) {
    return Error{Reason::noHardware, "No driver is behind " + interface +
                                         ". Plug the device in again, or use another one."};
  }
  const std::string module = linkedName(driverLink / "module");
  const fs::path parameters = sysfs / "module" / (module.empty() ? driver : module) / "parameters";
  for (const char* const parameter : kParameters) {
    errno = 0;
    std::ifstream file(parameters / parameter);
    if (!file && errno == EACCES) {
      return Error{Reason::notPermitted, "The parameter " + std::string(parameter) + " of " +
                                             driver + " cannot be read. Run as root."};
    }
    std::string text;
    if (!file || !(file >> text)) continue;
    if (const auto flag = flagFrom(text)) return facts::Coexistence{*flag};
    return Error{Reason::failed, "The parameter " + std::string(parameter) + " of " + driver +
                                     " is neither on nor off. Set it (modprobe.d)."};
  }
  return Error{Reason::notSupported, "The driver " + driver +
                                         " has no parameter about taking turns with Bluetooth. Ask "
                                         "its maker, or use another device."};
}

}  // namespace wifi_profile::linux
