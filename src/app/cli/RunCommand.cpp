#include "app/cli/RunCommand.h"

#include <csignal>
#include <cstdlib>
#include <functional>
#include <optional>
#include <unistd.h>
#include <utility>

#include "app/cli/Console.h"
#include "app/cli/DiagnosticRun.h"
#include "app/cli/ExitStatus.h"
#include "app/cli/Files.h"
#include "app/cli/TraceFile.h"
#include "diagnostic/platform/Mutex.h"
#include "report/ReportText.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/Interrupts.h"
#include "runtime/JsonWriter.h"
#include "runtime/ThreadRunLoop.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile::cli {
namespace {

// Returns the name of the environment's locale for `category`, such as "LC_COLLATE".
std::string_view localeFor(const char* category) {
  for (const char* const name : {"LC_ALL", category, "LANG"}) {
    if (environmentHas(name)) return std::getenv(name);
  }
  return "C";
}

std::string_view languageFor(const RunOptions& options) {
  if (options.language) return *options.language;
  return runtime::BuiltInStringTable::languageOfLocale(localeFor("LC_MESSAGES")).value_or("en");
}

// Returns what standard error shows besides the screen.
ProgressLine::Shows showsBeside(Ui ui) {
  if (!isTerminal(STDERR_FILENO)) return ProgressLine::Shows::lines;
  return ui == Ui::terminal ? ProgressLine::Shows::linesAtTheEnd : ProgressLine::Shows::linesAndBar;
}

std::string recordText(const RunOptions& options, const DiagnosticRun& run) {
  const bool onTerminal = isatty(STDOUT_FILENO) != 0;
  const auto form = options.output.value_or(onTerminal ? OutputForm::text : OutputForm::json);
  if (form == OutputForm::text) {
    return report::reportText(report::reportOf(run.finishedRun()),
                              {.color = isTerminal(STDOUT_FILENO) && !environmentHas("NO_COLOR")});
  }
  return runtime::jsonText(
             makeDictionary({{"data", run.data()},
                             {"statusCode", Number::withInteger(run.finishedRun().statusCode)}})) +
         "\n";
}

// Prints the run's result, and returns the exit status.
int conclude(const DiagnosticRun& run, Ending ending, const RunOptions& options) {
  switch (ending) {
    case Ending::finished:
      if (const Status printed = print(recordText(options, run)); !printed) {
        return complain({kExitOutput, printed.error()});
      }
      break;
    case Ending::tornDown:
      return complain(kExitTornDown, "torn down before the run finished; there is no record");
    case Ending::interrupted:
      return complain(kExitInterrupted, "interrupted; there is no record");
    case Ending::stuck:
      return complain(kExitScenario, options.device.value_or("") + ": at " + run.reason());
  }
  return static_cast<int>(std::abs(run.finishedRun().statusCode));
}

// Handles interrupts during a run, from its preparation on. The first interrupt ends the current
// activity. If there is no activity to end, or at the second interrupt, the process exits
// immediately.
class RunInterrupts {
 public:
  Mutex mutex;  // while it is held, an interrupt waits

  // Sets the screen to abandon when the process exits immediately.
  void setScreen(std::shared_ptr<app::PersonScreen> person) REQUIRES(mutex) {
    person_ = std::move(person);
  }

  // During its lifetime, the first interrupt calls `end`, on a separate thread.
  class Scope {
   public:
    Scope(RunInterrupts& interrupts, std::function<void()> end) : interrupts_(interrupts) {
      const MutexLock lock(interrupts_.mutex);
      interrupts_.end_ = std::move(end);
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() {
      const MutexLock lock(interrupts_.mutex);
      interrupts_.end_ = nullptr;
    }

   private:
    RunInterrupts& interrupts_;
  };

 private:
  void interrupted() {
    const MutexLock lock(mutex);
    if (!end_) {
      if (person_) person_->abandon();
      std::_Exit(kExitInterrupted);
    }
    std::exchange(end_, nullptr)();
  }

  std::shared_ptr<app::PersonScreen> person_ GUARDED_BY(mutex);
  std::function<void()> end_ GUARDED_BY(mutex);
  const runtime::Interrupts interrupts_{
      [this] { interrupted(); }};  // last: its thread uses the above
};

// Shows a report until the person closes it.
void showReport(app::PersonScreen& person, report::Report report) {
  person.showReport(std::move(report));
  const auto queue = person.mainQueue();
  while (!person.isClosed()) queue->handleNext();
}

int runOn(runtime::RunLoop& loop, const RunOptions& options, PreparedRun prepared,
          StringTable& texts, const std::shared_ptr<app::PersonScreen>& person,
          RunInterrupts& interrupts) {
  std::optional<TraceFile> trace;
  if (prepared.traceFile) {
    trace.emplace(loop, std::move(prepared.traceFile), *options.traceFile);
  }
  const InstalledPlatform installedTrace({.trace = trace ? &*trace : nullptr});
  ProgressLine line(stderr, showsBeside(uiOf(options)));
  runtime::IcuNameCollator collator(localeFor("LC_COLLATE"));
  const auto run =
      std::make_shared<DiagnosticRun>(prepared.makeDevice(loop), std::move(prepared.inputs),
                                      Surroundings{loop, line, texts, collator, person});
  const RunInterrupts::Scope endsEarly(interrupts, [&run, &person] {
    run->interrupt();
    if (person) person->mainQueue()->post([&person] { person->close(); });
  });
  const Ending ending = run->run();
  if (person) {
    if (ending == Ending::finished) showReport(*person, report::reportOf(run->finishedRun()));
    person->close();
  }
  line.clear();
  const int status = conclude(*run, ending, options);
  if (trace && !trace->status()) return complain({kExitOutput, trace->status().error()});
  return status;
}

}  // namespace

int runCommand(const RunOptions& options, const Drawing& drawing,
               const OpenComputer& openComputer) {
  const Ui ui = uiOf(options);
  if (ui != Ui::none && ui != drawing.ui) {
    const bool window = ui == Ui::window;
    return complain(kExitUsage, std::string("--ui ") + (window ? "window" : "terminal") +
                                    ": this program cannot draw it; use " +
                                    (window ? "terminal" : "window") + " or none");
  }
  RunInterrupts interrupts;
  auto prepared = prepareRun(options, openComputer);
  const auto* failure = std::get_if<Failure>(&prepared);
  // In a terminal, the message on standard error is visible; no screen is drawn for it.
  if (failure && ui != Ui::window) return complain(*failure);
  std::signal(SIGPIPE, SIG_IGN);  // a closed reader then shows as a failed write
  runtime::BuiltInStringTable texts(languageFor(options));
  const InstalledPlatform platform({.texts = &texts});  // for the screen
  std::shared_ptr<app::PersonScreen> person;
  if (ui != Ui::none) {
    const MutexLock lock(interrupts.mutex);
    auto made = drawing.make();
    if (!made) return complain({kExitUsage, made.error()});
    person = *made;
    interrupts.setScreen(person);
  }
  if (failure) {
    const int status = complain(*failure);
    const RunInterrupts::Scope endsEarly(
        interrupts, [&person] { person->mainQueue()->post([&person] { person->close(); }); });
    showReport(*person, {.summary = "could not begin",
                         .earlyEnd = report::ReportFinding{.mark = report::ReportMark::problem,
                                                           .sentence = textOf(failure->error),
                                                           .values = {},
                                                           .advice = {},
                                                           .explanation = {}},
                         .sections = {}});
    return status;
  }
  std::unique_ptr<runtime::RunLoop> loop;
  if (options.virtualTime) {
    loop = std::make_unique<runtime::VirtualTimeRunLoop>();
  } else if (person) {
    loop = std::make_unique<runtime::ThreadRunLoop>(person->mainQueue());
  } else {
    loop = std::make_unique<runtime::ThreadRunLoop>();
  }
  return runOn(*loop, options, std::get<PreparedRun>(std::move(prepared)), texts, person,
               interrupts);
}

}  // namespace wifi_profile::cli
