// The base class of the interfaces that the diagnostic uses and other code implements.
#pragma once

namespace wifi_profile {

// Used through pointers and references, never copied.
class Interface {
 public:
  Interface() = default;
  Interface(const Interface&) = delete;
  Interface& operator=(const Interface&) = delete;
  virtual ~Interface() = default;
};

}  // namespace wifi_profile
