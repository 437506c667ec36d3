#include "runtime/ThreadRunLoop.h"

#include <asio/post.hpp>
#include <asio/steady_timer.hpp>
#include <asio/thread_pool.hpp>
#include <condition_variable>
#include <future>
#include <set>
#include <thread>

#include "diagnostic/platform/Mutex.h"
#include "runtime/AsioMainQueue.h"

namespace wifi_profile::runtime {

struct ThreadRunLoop::State {
  State(std::shared_ptr<MainQueue> queue, std::size_t workers)
      : main(std::move(queue)), pool(workers) {}

  void runOnPool(Work work) {
    asio::post(pool, [this, work = std::move(work)]() mutable {
      work();
      work = nullptr;  // release what it holds while it still counts as work
      finishedGlobal();
    });
  }

  // Work whose delay was cut short still runs after the work already posted to the main queue.
  void runInAHurry(Work work) {
    main->post([this, work = std::move(work)]() mutable { runOnPool(std::move(work)); });
  }

  // Posts empty work, because the main thread may be waiting for work and must check `outstanding`.
  void finishedGlobal() {
    --outstanding;
    main->post([] {});
  }

  const std::thread::id mainThread = std::this_thread::get_id();
  const std::shared_ptr<MainQueue> main;

  std::atomic<std::size_t> outstanding = 0;  // main work posted, global work posted or running

  Mutex mutex;
  std::condition_variable_any pauseEnds;
  bool hurried GUARDED_BY(mutex) = false;
  std::set<std::shared_ptr<asio::steady_timer>> timers GUARDED_BY(mutex);

  asio::thread_pool pool;  // declared last, so that its threads end before the other members
};

ThreadRunLoop::ThreadRunLoop(std::size_t workers)
    : ThreadRunLoop(std::make_shared<AsioMainQueue>(), workers) {}

ThreadRunLoop::ThreadRunLoop(std::shared_ptr<MainQueue> main, std::size_t workers)
    : state_(std::make_unique<State>(std::move(main), workers > 0 ? workers : 1)) {}

ThreadRunLoop::~ThreadRunLoop() {
  hurry();
  runUntilIdle();
  state_->pool.join();
}

void ThreadRunLoop::postToMain(Work work) {
  ++state_->outstanding;
  state_->main->post([state = state_.get(), work = std::move(work)]() mutable {
    work();
    work = nullptr;
    --state->outstanding;
  });
}

void ThreadRunLoop::postToGlobal(Work work) {
  ++state_->outstanding;
  state_->runOnPool(std::move(work));
}

void ThreadRunLoop::postToGlobalAfter(std::chrono::nanoseconds delay, Work work) {
  ++state_->outstanding;
  const MutexLock lock(state_->mutex);
  if (state_->hurried) {
    state_->runInAHurry(std::move(work));
    return;
  }
  auto timer = std::make_shared<asio::steady_timer>(state_->pool, delay);
  state_->timers.insert(timer);
  timer->async_wait(
      [state = state_.get(), timer, work = std::move(work)](asio::error_code cancelled) mutable {
        {
          const MutexLock relock(state->mutex);
          state->timers.erase(timer);
        }
        if (cancelled) {
          state->runInAHurry(std::move(work));
        } else {
          state->runOnPool(std::move(work));
        }
      });
}

void ThreadRunLoop::runOnGlobalAndWait(const Work& work) { work(); }

bool ThreadRunLoop::onMainThread() const {
  return std::this_thread::get_id() == state_->mainThread;
}

void ThreadRunLoop::waitForMain() {
  if (onMainThread()) return;
  std::promise<void> handled;
  postToMain([&handled] { handled.set_value(); });
  handled.get_future().wait();
}

void ThreadRunLoop::pause(std::chrono::nanoseconds time, const std::atomic<bool>& cut) {
  State& state = *state_;
  const MutexLock lock(state.mutex);
  state.pauseEnds.wait_for(state.mutex, time,
                           [&]() REQUIRES(state.mutex) { return cut || state.hurried; });
}

void ThreadRunLoop::cutPauses() {
  const MutexLock lock(state_->mutex);
  state_->pauseEnds.notify_all();
}

void ThreadRunLoop::runUntilIdle() {
  while (state_->outstanding > 0) state_->main->handleNext();
}

void ThreadRunLoop::hurry() {
  const MutexLock lock(state_->mutex);
  state_->hurried = true;
  state_->pauseEnds.notify_all();
  for (const auto& timer : state_->timers) timer->cancel();
}

}  // namespace wifi_profile::runtime
