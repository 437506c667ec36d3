#include "app/cli/Script.h"

namespace wifi_profile::cli {
namespace {

// Returns the person's action that completes a step. Empty for the steps that the script performs
// in any case.
std::optional<PersonAction> personActionOf(scenario::Action action) {
  using scenario::Action;
  switch (action) {
    case Action::tapNetwork:
    case Action::tapRow:
    case Action::tapOther:
      return PersonAction::tapRow;
    case Action::type:
      return PersonAction::type;
    case Action::tapAction:
      return PersonAction::tapAlertAction;
    case Action::tapNext:
      return PersonAction::tapButton;
    case Action::pullToRefresh:
      return PersonAction::pullToRefresh;
    case Action::setPower:
    case Action::scrollAway:
    case Action::teardown:
    case Action::wait:
      break;
  }
  return std::nullopt;
}

}  // namespace

Script::Script(std::vector<scenario::Step> steps, ScreenUser user, Perform perform)
    : steps_(std::move(steps)), user_(user), perform_(std::move(perform)) {
  if (user_ == ScreenUser::person) {
    std::erase_if(steps_,
                  [](const auto& step) { return step.action == scenario::Action::scrollAway; });
  }
}

bool Script::isScripted(const scenario::Step& step) const {
  return user_ == ScreenUser::script || !personActionOf(step.action);
}

void Script::personDid(PersonAction action) {
  const MutexLock lock(mutex_);
  if (ended_ || next_ == steps_.size() || isScripted(steps_[next_])) return;
  if (personActionOf(steps_[next_].action) == action) ++next_;
}

void Script::end() {
  const MutexLock lock(mutex_);
  ended_ = true;
}

bool Script::hasIdleStep() const {
  const MutexLock lock(mutex_);
  return !ended_ && next_ < steps_.size() && isScripted(steps_[next_]) && !steps_[next_].duringTest;
}

bool Script::hasStepDuring(DiagnosticsTestID test) const {
  const MutexLock lock(mutex_);
  return !ended_ && next_ < steps_.size() && isScripted(steps_[next_]) &&
         steps_[next_].duringTest == test;
}

void Script::performNextStep() {
  std::size_t index = 0;
  {
    const MutexLock lock(mutex_);
    if (ended_ || next_ == steps_.size()) return;
    index = next_++;
  }
  const Status performed = perform_(steps_[index]);
  if (performed) return;
  const MutexLock lock(mutex_);
  ended_ = true;
  Error error = performed.error();
  error.subject = "/user/" + std::to_string(index);
  status_ = std::move(error);
}

Status Script::status() const {
  const MutexLock lock(mutex_);
  return status_;
}

std::string Script::reasonForBeingStuck() const {
  const MutexLock lock(mutex_);
  const std::string after =
      next_ == 0 ? "before its first step" : "after step " + std::to_string(next_ - 1);
  if (next_ < steps_.size() && steps_[next_].duringTest) {
    return "/user/" + std::to_string(next_) + ": the run waits " + after + ", and the test " +
           std::string(nameOf(*steps_[next_].duringTest)) + " is not requested";
  }
  return "/user: the run waits " + after + ", and there is no further step";
}

}  // namespace wifi_profile::cli
