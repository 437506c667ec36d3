// A mutex whose use clang checks (-Wthread-safety): standard C++ locks carry no annotations.
#pragma once

#include <mutex>

#ifdef __clang__
#define WIFI_PROFILE_THREAD_ATTRIBUTE(x) __attribute__((x))
#else
#define WIFI_PROFILE_THREAD_ATTRIBUTE(x)
#endif

// On a member: read and write it with the mutex held.
#define GUARDED_BY(mutex) WIFI_PROFILE_THREAD_ATTRIBUTE(guarded_by(mutex))
// On a pointer: read and write the object behind it with the mutex held.
#define PT_GUARDED_BY(mutex) WIFI_PROFILE_THREAD_ATTRIBUTE(pt_guarded_by(mutex))
// On a function or a lambda: the caller holds the mutex, or does not hold it.
#define REQUIRES(...) WIFI_PROFILE_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define EXCLUDES(...) WIFI_PROFILE_THREAD_ATTRIBUTE(locks_excluded(__VA_ARGS__))
// On a function: it locks or unlocks the mutex (without arguments: its own object).
#define ACQUIRE(...) WIFI_PROFILE_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define RELEASE(...) WIFI_PROFILE_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
#define TRY_ACQUIRE(...) WIFI_PROFILE_THREAD_ATTRIBUTE(try_acquire_capability(__VA_ARGS__))

namespace wifi_profile {

// To wait until guarded members change, hold a MutexLock and pass the mutex itself to a
// std::condition_variable_any. Its predicate is a lambda with REQUIRES(mutex).
class WIFI_PROFILE_THREAD_ATTRIBUTE(capability("mutex")) Mutex {
 public:
  void lock() ACQUIRE() { mutex_.lock(); }
  void unlock() RELEASE() { mutex_.unlock(); }
  bool try_lock() TRY_ACQUIRE(true) { return mutex_.try_lock(); }

 private:
  std::mutex mutex_;
};

// Holds a mutex for its scope, except between unlock() and lock().
class WIFI_PROFILE_THREAD_ATTRIBUTE(scoped_lockable) MutexLock {
 public:
  explicit MutexLock(Mutex& mutex) ACQUIRE(mutex) : lock_(mutex) {}
  ~MutexLock() RELEASE() = default;
  MutexLock(const MutexLock&) = delete;
  MutexLock& operator=(const MutexLock&) = delete;

  void lock() ACQUIRE() { lock_.lock(); }
  void unlock() RELEASE() { lock_.unlock(); }

 private:
  std::unique_lock<Mutex> lock_;
};

}  // namespace wifi_profile
