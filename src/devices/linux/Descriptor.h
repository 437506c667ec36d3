// A file descriptor that closes itself.
#pragma once

#include <unistd.h>
#include <utility>

namespace wifi_profile::linux {

// Owns a file descriptor and closes it. A negative number means that it owns no descriptor.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor() { reset(); }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  int number() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }
  int release() { return std::exchange(number_, -1); }
  void reset() {
    if (number_ >= 0) close(number_);
    number_ = -1;
  }

 private:
  int number_;
};

}  // namespace wifi_profile::linux
