// Parses the command line.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace wifi_profile::cli {

enum class OutputForm { text, json };
// The screen that is shown to the person.
enum class Ui { none, terminal, window };

// Options of `run`. An optional is empty where the option was not given.
struct RunOptions {
  std::optional<std::string> device;
  std::optional<std::string> parametersFile;
  std::optional<std::string> networkName;
  std::optional<std::string> maxScanCacheAge;
  bool pick = false;
  std::optional<Ui> ui;
  std::optional<OutputForm> output;
  std::optional<std::string> traceFile;
  bool virtualTime = false;
  std::optional<std::string> language;
  std::optional<std::string> site;
};

// Options of `scan`.
struct ScanOptions {
  std::optional<std::string> device;
  int maxScanCacheAge = 60;  // seconds
  bool all = false;
  bool json = false;
};

struct TestsOptions {
  bool json = false;
};

struct ExplainOptions {
  std::optional<std::string> key;  // empty: all keys
};

// The result of a command line that runs no command: a text to print and the exit status. The text
// goes to standard output if the status is 0, otherwise to standard error.
struct EarlyExit {
  int status;
  std::string text;
};

using Command = std::variant<RunOptions, ScanOptions, TestsOptions, ExplainOptions, EarlyExit>;

// `arguments` does not include the program's name.
Command parseCommandLine(std::vector<std::string> arguments);

}  // namespace wifi_profile::cli
