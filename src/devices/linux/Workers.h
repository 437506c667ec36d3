// Runs work on a small, fixed number of threads.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <thread>
#include <type_traits>
#include <vector>

#include "diagnostic/platform/Mutex.h"

namespace wifi_profile::linux {

// Threads that run jobs in order. A job may run for ever: abandon it, and another thread takes its
// place. Any thread.
class Workers {
 public:
  class Job;
  using JobRef = std::shared_ptr<Job>;  // null: a job that never begins

  explicit Workers(std::size_t count) : count_(count) {}
  // Waits for all jobs.
  ~Workers();
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  // The workers of this process: with the other threads of a run, at most 12. They are never
  // destroyed, so that no job delays the end of the process.
  static constexpr std::size_t kShared = 5;
  static Workers& shared();

  // Adds a job, which must not throw, at the end of the queue. Returns null if the system has no
  // threads left.
  JobRef run(std::function<void()> work);
  // Moves a job that has not begun to the front of the queue.
  void hasten(const JobRef& job);
  // Removes a job that has not begun. False: it has begun.
  bool retract(const JobRef& job);
  // No longer counts the thread of a running job, which ends with the job.
  void abandon(const JobRef& job);
  // Whether any job waits or runs, abandoned ones included.
  bool isBusy();

 private:
  void addThread() REQUIRES(mutex_);
  void work();

  const std::size_t count_;
  Mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<JobRef> queue_ GUARDED_BY(mutex_);
  std::vector<std::thread> threads_ GUARDED_BY(mutex_);
  std::size_t counted_ GUARDED_BY(mutex_) = 0;  // threads without those of abandoned jobs
  std::size_t idle_ GUARDED_BY(mutex_) = 0;     // threads that wait for a job
  std::size_t running_ GUARDED_BY(mutex_) = 0;  // jobs
  bool closing_ GUARDED_BY(mutex_) = false;
};

// Runs `work` on a shared worker while the caller goes on. If none begins it before `get`, it runs
// there. `work` may refer to the caller's variables: the destructor waits for it.
template <class T>
class Alongside {
 public:
  explicit Alongside(std::function<T()> work)
      : task_(std::make_shared<std::packaged_task<T()>>(std::move(work))),
        result_(task_->get_future()),
        job_(Workers::shared().run([task = task_] { (*task)(); })) {
    Workers::shared().hasten(job_);
  }
  ~Alongside() {
    if (result_.valid() && !Workers::shared().retract(job_)) result_.wait();
  }
  Alongside(const Alongside&) = delete;
  Alongside& operator=(const Alongside&) = delete;

  // Call it once.
  T get() {
    if (Workers::shared().retract(job_)) (*task_)();
    return result_.get();
  }

 private:
  const std::shared_ptr<std::packaged_task<T()>> task_;
  std::future<T> result_;
  const Workers::JobRef job_;
};
template <class Work>
Alongside(Work) -> Alongside<std::invoke_result_t<Work>>;

}  // namespace wifi_profile::linux
