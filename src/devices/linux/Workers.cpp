#include "devices/linux/Workers.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace wifi_profile::linux {

class Workers::Job {
 public:
  explicit Job(std::function<void()> one) : work(std::move(one)) {}

  std::function<void()> work;
  // With the mutex of the workers held.
  enum class State { waiting, running, abandoned, ended } state = State::waiting;
};

Workers& Workers::shared() {
  static auto* const kWorkers = new Workers(kShared);
  return *kWorkers;
}

Workers::~Workers() {
  MutexLock lock(mutex_);
  closing_ = true;
  changed_.notify_all();
  auto threads = std::move(threads_);
  lock.unlock();
  for (std::thread& thread : threads) thread.join();
}

void Workers::addThread() {
  if (idle_ >= queue_.size() || counted_ >= count_) return;
  threads_.emplace_back([this] { work(); });
  ++counted_;
}

Workers::JobRef Workers::run(std::function<void()> work) {
  const MutexLock lock(mutex_);
  queue_.push_back(std::make_shared<Job>(std::move(work)));
  try {
    addThread();
  } catch (const std::system_error&) {
    if (counted_ == 0) {
      queue_.pop_back();
      return nullptr;
    }
  }
  changed_.notify_one();
  return queue_.back();
}

void Workers::hasten(const JobRef& job) {
  const MutexLock lock(mutex_);
  const auto found = std::ranges::find(queue_, job);
  if (found != queue_.end()) std::rotate(queue_.begin(), found, found + 1);
}

bool Workers::retract(const JobRef& job) {
  if (!job) return true;
  std::function<void()> work;  // destroyed without the mutex
  const MutexLock lock(mutex_);
  if (std::erase(queue_, job) == 0) return false;
  work = std::move(job->work);
  return true;
}

void Workers::abandon(const JobRef& job) {
  const MutexLock lock(mutex_);
  if (!job || job->state != Job::State::running) return;
  job->state = Job::State::abandoned;
  --counted_;
  try {
    addThread();
  } catch (const std::system_error&) {
    ++counted_;  // its thread goes on with the queue
    job->state = Job::State::running;
  }
}

bool Workers::isBusy() {
  const MutexLock lock(mutex_);
  return running_ > 0 || !queue_.empty();
}

void Workers::work() {
  MutexLock lock(mutex_);
  while (true) {
    ++idle_;
    changed_.wait(mutex_, [this]() REQUIRES(mutex_) { return closing_ || !queue_.empty(); });
    --idle_;
    if (queue_.empty()) return;
    const JobRef job = std::move(queue_.front());
    queue_.pop_front();
    job->state = Job::State::running;
    ++running_;
    lock.unlock();
    job->work();
    job->work = nullptr;
    lock.lock();
    --running_;
    if (std::exchange(job->state, Job::State::ended) == Job::State::abandoned) return;
  }
}

}  // namespace wifi_profile::linux
