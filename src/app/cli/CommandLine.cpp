#include "app/cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <fmt/format.h>

#include "app/cli/ExitStatus.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/SafeText.h"

namespace wifi_profile::cli {
namespace {

constexpr const char* kRunExamples = R"(Examples:
  wifi-profile run
      this computer's Wi-Fi
  wifi-profile run --pick --site https://intranet.example/
      the same with a network that is chosen first, and another site to reach
  wifi-profile run --device demo
      the built-in demonstration, in real time
  wifi-profile run --device demo --network-name "Café Linde" --output text
      the same, with a second network to look at
  wifi-profile run --device scenarios/captive-cafe.json --time virtual --trace trace.ndjson
      a scenario, in virtual time, with a trace
  wifi-profile run --device demo --pick
      choose a network from a list first, in the terminal
  wifi-profile run --device demo --pick --ui window
      the same in a window
  wifi-profile run --device demo --pick --ui none
      the same without a screen: the scenario's user chooses
  echo '{"maxScanCacheAge":60,"reprofileWithUI":false}' | wifi-profile run --device demo --parameters -
      the parameters as a host passes them

Settings of the tests of this computer, as JSON: /etc/wifi-profile/settings.json, then
wifi-profile/settings.json in XDG_CONFIG_HOME or ~/.config.

Exit status: 0 done; 2 to 7 for the status codes -2 to -7; 64 wrong command line or parameters;
65 unusable scenario; 69 no such device; 71 no memory, descriptors or threads left; 74 output that
cannot be written; 75 torn down before the end; 78 unusable settings; 130 interrupted.
)";

constexpr const char* kScanExamples = R"(Examples:
  wifi-profile scan
      the networks in range, each with its strongest access point; * is the joined one
  wifi-profile scan --all --max-scan-cache-age 0
      every access point, by a new scan
  wifi-profile scan --json | jq -r '.[] | select(.security == "None") | .ssid'
      the open ones, in a script
)";

constexpr const char* kTestsExamples = R"(Examples:
  wifi-profile tests
  wifi-profile tests --json
)";

constexpr const char* kExplainExamples = R"(Examples:
  wifi-profile explain
      lists every key of the record
  wifi-profile explain isUsingCustomDNS
      says what a finding means, and what to do about it
)";

// Restricts an option to a few values, and refuses any other value with a message in the program's
// own form.
void allowOnly(CLI::Option* option, const std::vector<std::string>& values) {
  option->type_name(fmt::format("{}", fmt::join(values, "|")));
  option->check([values](const std::string& given) {
    if (std::find(values.begin(), values.end(), given) != values.end()) return std::string();
    return fmt::format("found \"{}\", expected {} or {}", given,
                       fmt::join(values.begin(), values.end() - 1, ", "), values.back());
  });
}

void addDevice(CLI::App* command, std::optional<std::string>& device) {
  command
      ->add_option("--device", device,
                   "linux, linux:IFNAME, demo, or the path of a scenario file [linux]")
      ->type_name("DEVICE")
      ->check([](const std::string& given) {
        return given == "linux:" ? "no interface name after \"linux:\"; use linux or linux:wlan0"
                                 : "";
      });
}

std::vector<std::string> languageNames() {
  const auto& known = runtime::BuiltInStringTable::languages();
  return {known.begin(), known.end()};
}

// Option values as given, before they are interpreted.
struct RunTexts {
  std::string ui;
  std::string output;
  std::string time = "real";
};

CLI::App* addRun(CLI::App& app, RunOptions& run, RunTexts& texts) {
  CLI::App* command = app.add_subcommand("run", "Run the diagnostic once and print its record");
  command->footer(kRunExamples);
  addDevice(command, run.device);
  command
      ->add_option(
          "--site", run.site,
          "Page that this computer must be able to fetch (http or https) [the settings' site]")
      ->type_name("URL");
  CLI::Option* const parameters =
      command
          ->add_option("--parameters", run.parametersFile,
                       "Parameters as a host passes them, as JSON (-: standard input)")
          ->type_name("FILE");
  parameters->excludes(command
                           ->add_option("--network-name", run.networkName,
                                        "Network to profile besides the joined one (SSID)")
                           ->type_name("NAME"));
  parameters->excludes(command
                           ->add_option("--max-scan-cache-age", run.maxScanCacheAge,
                                        "Oldest scan to accept, in seconds (0 to 600) [60]")
                           ->type_name("SECONDS"));
  parameters->excludes(command->add_flag(
      "--pick", run.pick,
      "Choose the network from a list first; with --ui none the scenario's user does"));
  allowOnly(
      command->add_option("--ui", texts.ui, "Screen to show [terminal on a terminal, else none]"),
      {"none", "terminal", "window"});
  allowOnly(command->add_option("--output", texts.output,
                                "Form of the record [text on a terminal, else json]"),
            {"text", "json"});
  command->add_option("--trace", run.traceFile, "Write what happens to this file, as JSON lines")
      ->type_name("FILE");
  allowOnly(command->add_option("--time", texts.time,
                                "virtual: waits take no time (scenarios only) [real]"),
            {"real", "virtual"});
  allowOnly(command->add_option("--language", run.language,
                                "Language of the screen's texts; keys: their keys [environment's]"),
            languageNames());
  return command;
}

int scanCacheAge(const std::string& given) {
  int age = 0;
  const char* const last = given.data() + given.size();
  const auto [end, error] = std::from_chars(given.data(), last, age);
  if (error == std::errc() && end == last && age >= 0 && age <= 600) return age;
  throw CLI::ValidationError(
      "--max-scan-cache-age",
      fmt::format("found \"{}\", expected a whole number from 0 to 600 (seconds)", given));
}

CLI::App* addScan(CLI::App& app, ScanOptions& scan) {
  CLI::App* command = app.add_subcommand("scan", "List the networks in range");
  command->footer(kScanExamples);
  addDevice(command, scan.device);
  command->add_flag("--all", scan.all, "Every access point, not only the strongest of a name");
  command
      ->add_option_function<std::string>(
          "--max-scan-cache-age",
          [&scan](const std::string& given) { scan.maxScanCacheAge = scanCacheAge(given); },
          "Oldest scan to accept, in seconds (0 to 600) [60]")
      ->type_name("SECONDS");
  command->add_flag("--json", scan.json, "As JSON, for programs");
  return command;
}

// Returns the parser's message in the program's own form.
std::string messageOf(const CLI::ParseError& error) {
  std::string text = error.what();
  const auto colon = text.find(": ");
  if (dynamic_cast<const CLI::ExtrasError*>(&error)) {
    return "unknown argument: " + text.substr(colon + 2);
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error)) {
    const bool none = text.find("missing") != std::string::npos;
    return text.substr(0, colon) + (none ? ": no value given" : ": given more than once");
  }
  const auto excludes = text.find(" excludes ");
  if (excludes == std::string::npos) return text;
  return text.substr(0, excludes) + " cannot be used with " + text.substr(text.rfind(' ') + 1);
}

EarlyExit failed(const CLI::App& app, const std::string& message) {
  const auto commands = app.get_subcommands();
  const std::string command = commands.empty() ? "" : " " + commands.front()->get_name();
  return {kExitUsage, fmt::format("wifi-profile: {}\nTry 'wifi-profile{} --help'.\n",
                                  runtime::safeText(message), command)};
}

}  // namespace

Command parseCommandLine(std::vector<std::string> arguments) {
  CLI::App app("Finds out what is wrong with a device's Wi-Fi: 41 tests, one record.",
               "wifi-profile");
  app.set_version_flag("--version", std::string("wifi-profile ") + WIFI_PROFILE_VERSION);
  app.require_subcommand(0, 1);
  app.footer("To begin with: wifi-profile run, or without Wi-Fi: wifi-profile run --device demo\n");
  RunOptions run;
  RunTexts texts;
  TestsOptions tests;
  ExplainOptions explain;
  CLI::App* const runCommand = addRun(app, run, texts);
  ScanOptions scan;
  CLI::App* const scanCommand = addScan(app, scan);
  CLI::App* const testsCommand = app.add_subcommand("tests", "List the catalogue of tests");
  testsCommand->add_flag("--json", tests.json, "As JSON, for programs");
  testsCommand->footer(kTestsExamples);
  CLI::App* const explainCommand =
      app.add_subcommand("explain", "Say what a key of the record means");
  explainCommand->add_option("KEY", explain.key, "Key to explain; without one, all are listed");
  explainCommand->footer(kExplainExamples);

  // The parser takes the argument after "--name=" as the value, so an empty value must be an
  // argument of its own.
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const bool isEmptyValue = arguments[i].find('=') + 1 == arguments[i].size();
    if (!arguments[i].starts_with("--") || !isEmptyValue) continue;
    arguments[i].pop_back();
    arguments.emplace(arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1);
  }
  std::reverse(arguments.begin(), arguments.end());  // the parser expects reverse order
  try {
    app.parse(std::move(arguments));
  } catch (const CLI::CallForHelp&) {
    const auto commands = app.get_subcommands();
    return EarlyExit{kExitDone,
                     commands.empty() ? app.help() : commands.front()->help(app.get_name())};
  } catch (const CLI::CallForVersion& version) {
    return EarlyExit{kExitDone, std::string(version.what()) + "\n"};
  } catch (const CLI::ParseError& error) {
    return failed(app, messageOf(error));
  }
  if (scanCommand->parsed()) return scan;
  if (testsCommand->parsed()) return tests;
  if (explainCommand->parsed()) return explain;
  if (!runCommand->parsed())
    return failed(app, "no command given: use run, scan, tests or explain");
  if (!texts.ui.empty()) {
    run.ui = texts.ui == "none" ? Ui::none : texts.ui == "window" ? Ui::window : Ui::terminal;
  }
  if (!texts.output.empty()) {
    run.output = texts.output == "json" ? OutputForm::json : OutputForm::text;
  }
  run.virtualTime = texts.time == "virtual";
  return run;
}

}  // namespace wifi_profile::cli
