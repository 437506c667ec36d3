#include "host/RunCommand.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fmt/format.h>
#include <system_error>
#include <unistd.h>

#include "devices/scenario/ScenarioReader.h"
#include "host/DemoScenario.h"
#include "host/DiagnosticRun.h"
#include "host/ExitStatus.h"
#include "host/Files.h"
#include "host/Inputs.h"
#include "host/PersonFollower.h"
#include "host/ReportDocument.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/Interrupts.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "runtime/SafeText.h"
#include "runtime/ThreadRunLoop.h"
#include "runtime/VirtualTimeRunLoop.h"
#include "tests/Catalogue.h"

namespace wifi_profile {
namespace {

constexpr std::string_view kDemo = "demo";

// A problem that ends the program, and the status it ends with.
struct Failure {
  int status;
  std::string message;
};

int complain(const Failure& failure) {
  writeAll(stderr, "wifi-profile: " + safeText(failure.message) + "\n");
  return failure.status;
}

// A place that could not be written to, and the `errno` of that.
std::string unwritable(std::string_view place, int error) {
  return unexpected(place, std::generic_category().message(error), "an output that can be written")
      .message;
}

bool environmentHas(const char* name) {
  const char* const value = std::getenv(name);
  return value && *value != '\0';
}

// A terminal that can be drawn on.
bool isTerminal(int descriptor) {
  const char* const kind = std::getenv("TERM");
  return isatty(descriptor) != 0 && !(kind && std::strcmp(kind, "dumb") == 0);
}

std::string_view languageFor(const RunOptions& options) {
  if (options.language) return *options.language;
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (!environmentHas(name)) continue;
    return BuiltInStringTable::languageOfLocale(std::getenv(name)).value_or("en");
  }
  return "en";
}

Ui uiOf(const RunOptions& options) {
  if (options.ui) return *options.ui;
  // In virtual time there is no time for a person.
  const bool onTerminal = isTerminal(STDIN_FILENO) && isTerminal(STDOUT_FILENO);
  return onTerminal && !options.virtualTime ? Ui::terminal : Ui::none;
}

// What standard error shows beside a screen.
ProgressLine::Shows showsBeside(Ui ui) {
  if (!isTerminal(STDERR_FILENO)) return ProgressLine::Shows::lines;
  return ui == Ui::terminal ? ProgressLine::Shows::linesAtTheEnd : ProgressLine::Shows::linesAndBar;
}

std::variant<scenario::Scenario, Failure> readDevice(const RunOptions& options) {
  const std::string device = options.device.value_or("linux");
  if (device == "linux" || device.starts_with("linux:")) {
    return Failure{kExitNoDevice, fmt::format("{}found no Wi-Fi device of this machine: this build "
                                              "reads scenarios only; try --device demo",
                                              options.device ? device + ": " : "")};
  }
  const bool demo = device == kDemo;
  auto content = demo ? std::string(kDemoScenario) : readFile(device);
  if (const auto* problem = std::get_if<Problem>(&content)) {
    return Failure{kExitScenario, problem->message};
  }
  const auto document = readJson(std::get<std::string>(content));
  if (const auto* fault = std::get_if<JsonFault>(&document)) {
    return Failure{kExitScenario,
                   unexpected(fmt::format("{}:{}:{}", device, fault->line, fault->column),
                              fault->found, fault->expected)
                       .message};
  }
  auto read = scenario::readScenario(std::get<ObjectRef>(document));
  if (const auto* fault = std::get_if<scenario::Fault>(&read)) {
    const std::string place = fault->pointer.empty() ? "at the top" : "at " + fault->pointer;
    return Failure{
        kExitScenario,
        unexpected(fmt::format("{}: {}", device, place), fault->found, fault->expected).message};
  }
  return std::get<scenario::Scenario>(std::move(read));
}

std::string recordText(const RunOptions& options, const Outcome& outcome, const Journal& journal) {
  const bool onTerminal = isatty(STDOUT_FILENO) != 0;
  const auto form = options.output.value_or(onTerminal ? OutputForm::text : OutputForm::json);
  if (form == OutputForm::text) {
    return reportText(reportOf(outcome, journal),
                      {.color = isTerminal(STDOUT_FILENO) && !environmentHas("NO_COLOR")});
  }
  return jsonText(makeDictionary(
             {{"data", outcome.data}, {"statusCode", Number::withInteger(outcome.statusCode)}})) +
         "\n";
}

// Follows the run on standard error.
class Activity final : public Trace {
 public:
  explicit Activity(ProgressLine& line) : line_(line) {}
  void event(std::string_view name, const Fields& fields) override {
    if (name == "service.request") {
      const auto test = testNamed(as<Text>(fields.front().second)->string());
      if (test) line_.showActivity(catalogueTest(*test).label);
    }
    if (name == "ui.progress") line_.showProgress(as<Number>(fields.front().second)->toDouble());
  }

 private:
  ProgressLine& line_;
};

// Prints what the run came to, and returns the exit status.
int conclude(const DiagnosticRun& run, Ending ending, const RunOptions& options,
             const Journal& journal) {
  switch (ending) {
    case Ending::finished:
      if (writeAll(stdout, recordText(options, run.outcome(), journal))) break;
      return complain({kExitOutput, unwritable("standard output", errno)});
    case Ending::tornDown:
      return complain({kExitTornDown, "torn down before the run finished; there is no record"});
    case Ending::interrupted:
      return complain({kExitInterrupted, "interrupted; there is no record"});
    case Ending::stuck:
      return complain({kExitScenario, options.device.value_or("") + ": at " + run.reason()});
  }
  return static_cast<int>(std::abs(run.outcome().statusCode));
}

// Shows a finished run's report until the person has read it.
void showReport(PersonScreen& person, const Outcome& outcome, const Journal& journal) {
  person.showReport(reportOf(outcome, journal));
  const auto queue = person.mainQueue();
  while (!person.isClosed()) queue->handleNext();
}

int runOn(RunLoop& loop, const RunOptions& options, const scenario::Scenario& scenario,
          std::shared_ptr<WiFiProfileInputs> inputs, TraceFile::File traceFile,
          const std::shared_ptr<PersonScreen>& person) {
  TraceFile trace(loop, std::move(traceFile));
  Journal journal;
  ProgressLine line(stderr, showsBeside(uiOf(options)));
  Activity activity(line);
  trace.addListener(journal);
  trace.addListener(activity);
  const auto run = std::make_shared<DiagnosticRun>(
      scenario, std::move(inputs),
      Surroundings{loop, trace, line, Installed<StringTable>::get(),
                   std::make_shared<IcuNameCollator>(languageFor(options)), person});
  PersonFollower follower(*run);
  if (person) trace.addListener(follower);
  const Interrupts interrupts([&run, &person, again = false]() mutable {
    if (again) {  // asked twice: at once
      if (person) person->abandon();
      std::_Exit(kExitInterrupted);
    }
    again = true;
    run->interrupt();
    if (person) person->mainQueue()->post([&person] { person->close(); });
  });
  const Ending ending = run->run();
  if (person) {
    if (ending == Ending::finished) showReport(*person, run->outcome(), journal);
    person->close();
  }
  line.clear();
  const int status = conclude(*run, ending, options, journal);
  if (const int error = trace.firstError(); error != 0) {
    return complain({kExitOutput, unwritable(*options.traceFile, error)});
  }
  return status;
}

// Whether a file is an input of the run. What is no file proper, a terminal say, can be both.
bool readsFrom(const RunOptions& options, const std::string& file) {
  std::error_code missing;  // of a file that is not there: then it is not the same, either
  if (!std::filesystem::is_regular_file(file, missing)) return false;
  const auto isFile = [&](const std::optional<std::string>& input) {
    return input && std::filesystem::equivalent(*input, file, missing);
  };
  return (options.device != kDemo && isFile(options.device)) || isFile(options.parametersFile);
}

}  // namespace

int runCommand(const RunOptions& options, const MakeScreen& makeScreen) {
  const Ui ui = uiOf(options);
  if (ui != Ui::none && options.virtualTime) {
    return complain({kExitUsage, unexpected("--time", "virtual",
                                            "real: a person at a screen needs time (or --ui none)")
                                     .message});
  }
  if (options.device == "-" && options.parametersFile == "-") {
    return complain({kExitUsage, unexpected("--device and --parameters", "- for both",
                                            "standard input for one of them")
                                     .message});
  }
  auto inputs = inputsOf(options);
  if (const auto* problem = std::get_if<Problem>(&inputs)) {
    return complain({kExitUsage, problem->message});
  }
  auto scenario = readDevice(options);
  if (const auto* failure = std::get_if<Failure>(&scenario)) return complain(*failure);
  const auto& validInputs = std::get<std::shared_ptr<WiFiProfileInputs>>(inputs);
  const bool hasUser = std::get<scenario::Scenario>(scenario).user.has_value();
  if (validInputs->reprofileWithNetworksListUI() && !hasUser && ui == Ui::none) {
    return complain({kExitUsage, unexpected(placeOfPick(options), "a device without a user",
                                            "a scenario with \"user\" steps, or --ui terminal or "
                                            "window: --ui none draws no list to pick from")
                                     .message});
  }
  TraceFile::File traceFile;
  if (options.traceFile) {
    if (readsFrom(options, *options.traceFile)) {
      return complain({kExitUsage, unexpected("--trace", "a file that is read, too",
                                              "a file that may be overwritten")
                                       .message});
    }
    traceFile.reset(std::fopen(options.traceFile->c_str(), "wb"));
    if (!traceFile) return complain({kExitOutput, unwritable(*options.traceFile, errno)});
  }
  std::signal(SIGPIPE, SIG_IGN);  // a reader that has gone shows as a failed write
  const ScopedInstall<StringTable> texts(
      std::make_shared<BuiltInStringTable>(languageFor(options)));
  std::shared_ptr<PersonScreen> person;
  if (ui != Ui::none) {
    auto made = makeScreen();
    if (const auto* reason = std::get_if<std::string>(&made)) {
      return complain({kExitUsage, "--ui: " + *reason});
    }
    person = std::get<std::shared_ptr<PersonScreen>>(std::move(made));
  }
  std::unique_ptr<RunLoop> loop;
  if (options.virtualTime) {
    loop = std::make_unique<VirtualTimeRunLoop>();
  } else if (person) {
    loop = std::make_unique<ThreadRunLoop>(person->mainQueue());
  } else {
    loop = std::make_unique<ThreadRunLoop>();
  }
  return runOn(*loop, options, std::get<scenario::Scenario>(scenario), validInputs,
               std::move(traceFile), person);
}

}  // namespace wifi_profile
