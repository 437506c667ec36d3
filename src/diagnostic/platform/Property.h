// A property that one thread may read while another writes it.
#pragma once

#include <mutex>
#include <utility>

namespace wifi_profile {

// One value, read by copy and replaced as a whole. Meant for references, flags and counters. The
// lock does not cover the object that a reference points to: its type must be safe by itself.
template <class T>
class Property {
 public:
  Property() = default;
  explicit Property(T value) : value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property&) = delete;
  ~Property() = default;

  T operator()() const {
    const std::lock_guard lock(mutex_);
    return value_;
  }

  void set(T value) {
    {
      const std::lock_guard lock(mutex_);
      std::swap(value_, value);
    }
    // Destroy the old value after the lock is released: its destructor may use this property.
  }

  // Sets the property and returns its previous value, in one atomic step.
  T exchange(T value) {
    const std::lock_guard lock(mutex_);
    std::swap(value_, value);
    return value;
  }

 private:
  mutable std::mutex mutex_;
  T value_{};
};

}  // namespace wifi_profile
