// A property that may be read on one thread while another writes it.
#pragma once

#include <mutex>
#include <utility>

namespace wifi_profile {

// One value, handed out by copy and swapped whole. Meant for references, flags and counters: what
// a reference points to is safe by its own type.
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
    // The old value dies here, outside the lock: its destructor may come back to this property.
  }

  // Sets the property and returns what it held, as one step.
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
