#include "runtime/VirtualTimeRunLoop.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <random>
#include <thread>
#include <vector>

#include "diagnostic/platform/Mutex.h"

namespace wifi_profile::runtime {
namespace {

using std::chrono::nanoseconds;

// A thread that takes turns: the main thread, or that of a piece of global work.
struct Participant {
  std::condition_variable_any turnCame;
  const std::atomic<bool>* cut = nullptr;  // flag of the current pause
  std::thread thread;                      // unset for the main thread
  bool ended = false;
};

}  // namespace

struct VirtualTimeRunLoop::State {
  // An event at a point of time: a participant continues, or work begins.
  struct Due {
    Participant* participant;
    Work work;
  };

  explicit State(std::uint64_t seed) : seeded(seed != 0), random(seed) {}

  // Saturates at the largest time.
  nanoseconds after(nanoseconds time) const REQUIRES(mutex) {
    return time > nanoseconds::max() - clock ? nanoseconds::max() : clock + time;
  }

  // Gives the turn to `next`. Then waits until it is the turn of `waitsAgain`, unless that is null
  // because the caller's work has ended.
  void handOver(Participant* next, Participant* waitsAgain) REQUIRES(mutex) {
    turn = next;
    if (next) next->turnCame.notify_one();
    if (waitsAgain) waitForTurn(*waitsAgain);
  }

  void waitForTurn(Participant& self) REQUIRES(mutex) {
    self.turnCame.wait(mutex, [&]() REQUIRES(mutex) { return turn == &self; });
  }

  // Returns the participant to run next; null if there is nothing left to do.
  Participant* choose() REQUIRES(mutex) {
    while (true) {
      const bool mainHasWork = mainIsWaiting && !mainQueue.empty();
      const std::size_t choices = ready.size() + (mainHasWork ? 1 : 0);
      if (choices > 0) {
        std::size_t choice = seeded ? random() % choices : 0;
        if (mainHasWork && choice-- == 0) return &main;
        Participant* chosen = ready[choice];
        ready.erase(ready.begin() + static_cast<std::ptrdiff_t>(choice));
        return chosen;
      }
      if (due.empty()) return mainIsWaiting ? &main : nullptr;
      clock = std::max(clock, due.begin()->first);
      Due next = std::move(due.begin()->second);
      due.erase(due.begin());
      if (next.participant) {
        ready.push_back(next.participant);
      } else {
        begin(std::move(next.work));
      }
    }
  }

  // Makes global work ready to run, on a new thread that waits for its turn.
  void begin(Work work) REQUIRES(mutex) {
    // An ended participant has released the mutex, its last action, so join() does not block.
    std::erase_if(participants, [](const auto& participant) {
      if (participant->ended) participant->thread.join();
      return participant->ended;
    });
    participants.push_back(std::make_unique<Participant>());
    Participant* self = participants.back().get();
    ready.push_back(self);
    self->thread = std::thread([this, self, work = std::move(work)]() mutable {
      MutexLock lock(mutex);
      waitForTurn(*self);
      lock.unlock();
      work();
      work = nullptr;
      lock.lock();
      Participant* const next = choose();
      self->ended = true;
      handOver(next, nullptr);
    });
  }

  Mutex mutex;  // only the participant in turn runs work
  Participant main;
  Participant* turn GUARDED_BY(mutex) = &main;
  bool mainIsWaiting GUARDED_BY(mutex) = false;  // in runUntilIdle, for work
  std::deque<Work> mainQueue GUARDED_BY(mutex);
  std::vector<Participant*> ready GUARDED_BY(mutex);
  std::multimap<nanoseconds, Due> due GUARDED_BY(mutex);  // equal times: in order of insertion
  std::vector<std::unique_ptr<Participant>> participants GUARDED_BY(mutex);
  nanoseconds clock GUARDED_BY(mutex){0};
  const bool seeded;
  std::mt19937_64 random GUARDED_BY(mutex);
  const std::thread::id mainThread = std::this_thread::get_id();
};

VirtualTimeRunLoop::VirtualTimeRunLoop(std::uint64_t seed)
    : state_(std::make_unique<State>(seed)) {}

VirtualTimeRunLoop::~VirtualTimeRunLoop() {
  runUntilIdle();
  for (const auto& participant : state_->participants) participant->thread.join();
}

void VirtualTimeRunLoop::postToMain(Work work) {
  const MutexLock lock(state_->mutex);
  state_->mainQueue.push_back(std::move(work));
}

void VirtualTimeRunLoop::postToGlobal(Work work) {
  const MutexLock lock(state_->mutex);
  state_->begin(std::move(work));
}

void VirtualTimeRunLoop::postToGlobalAfter(nanoseconds delay, Work work) {
  const MutexLock lock(state_->mutex);
  state_->due.emplace(state_->after(delay), State::Due{nullptr, std::move(work)});
}

void VirtualTimeRunLoop::runOnGlobalAndWait(const Work& work) { work(); }

bool VirtualTimeRunLoop::onMainThread() const {
  return std::this_thread::get_id() == state_->mainThread;
}

void VirtualTimeRunLoop::waitForMain() {
  if (onMainThread()) return;
  MutexLock lock(state_->mutex);
  Participant* self = state_->turn;
  state_->mainQueue.push_back([state = state_.get(), self] {
    const MutexLock relock(state->mutex);
    state->ready.push_back(self);
  });
  state_->handOver(state_->choose(), self);
}

void VirtualTimeRunLoop::pause(nanoseconds time, const std::atomic<bool>& cut) {
  MutexLock lock(state_->mutex);
  if (cut) return;
  Participant* self = state_->turn;
  self->cut = &cut;
  state_->due.emplace(state_->after(time), State::Due{self, {}});
  state_->handOver(state_->choose(), self);
  self->cut = nullptr;
}

void VirtualTimeRunLoop::cutPauses() {
  const MutexLock lock(state_->mutex);
  for (auto entry = state_->due.begin(); entry != state_->due.end();) {
    Participant* const sleeper = entry->second.participant;
    if (sleeper && *sleeper->cut) {
      state_->ready.push_back(sleeper);
      entry = state_->due.erase(entry);
    } else {
      ++entry;
    }
  }
}

void VirtualTimeRunLoop::runUntilIdle() {
  MutexLock lock(state_->mutex);
  while (true) {
    state_->mainIsWaiting = true;
    Participant* next = state_->choose();
    if (next != &state_->main) state_->handOver(next, &state_->main);
    state_->mainIsWaiting = false;
    if (state_->mainQueue.empty()) return;  // the main thread has the turn but no work: idle
    Work work = std::move(state_->mainQueue.front());
    state_->mainQueue.pop_front();
    lock.unlock();
    work();
    work = nullptr;
    lock.lock();
  }
}

nanoseconds VirtualTimeRunLoop::now() const {
  const MutexLock lock(state_->mutex);
  return state_->clock;
}

}  // namespace wifi_profile::runtime
