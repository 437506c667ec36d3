// Finding facts out, side by side, each once.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "checks/Checks.h"
#include "devices/linux/Patience.h"

namespace wifi_profile::machine {

// Puts what was found where it belongs.
using Found = std::function<void(checks::Facts& facts)>;

// One piece of work that finds facts out.
struct Errand {
  std::string name;  // for a message: "The ... took too long."
  checks::FactSet gives;
  checks::FactSet after;            // begins when these are settled
  std::chrono::milliseconds limit;  // from its beginning
  // On a thread of its own. `known` has what `after` asks for. Must end with its patience; one that
  // does not is left behind, and what it gives counts as not known.
  std::function<Found(const checks::Facts& known, const Patience& patience)> run;
};

// Makes these facts not known, for this reason.
void forget(checks::Facts& facts, checks::FactSet gone, const checks::Unknown& why);

// Runs errands when what they give is wanted. A fact is settled once it was found out or its
// errand has failed (by an exception, too), has taken too long or was called off; it never changes
// after that. Any thread.
class Gathering {
 public:
  // Every fact is given by one errand at most; those given by none are settled from the start, as
  // not known. `used` lives for as long as an errand runs. Throws std::system_error when the system
  // has no descriptors left.
  explicit Gathering(std::vector<Errand> errands, std::shared_ptr<const void> used = nullptr);
  // Calls everything off, and waits for it, but no longer than kEndLimit: an errand that goes on
  // keeps its thread, and what that uses, up to the end of the process.
  ~Gathering();
  Gathering(const Gathering&) = delete;
  Gathering& operator=(const Gathering&) = delete;

  static constexpr std::chrono::milliseconds kEndLimit{500};

  // Begins what gives these facts, and what that comes after. Returns at once.
  void begin(checks::FactSet facts);

  // Waits until these facts are settled, and returns all that are by then. Nothing when it was
  // called off meanwhile, or before.
  std::optional<checks::Facts> await(checks::FactSet facts);

  // Calls everything off: those that wait go on at once.
  void cancel();

 private:
  class Work;
  std::shared_ptr<Work> work_;
};

}  // namespace wifi_profile::machine
