// The base of everything that the diagnostic asks for and somebody else provides.
#pragma once

namespace wifi_profile {

// Held by reference and never copied.
class Interface {
 public:
  Interface() = default;
  Interface(const Interface&) = delete;
  Interface& operator=(const Interface&) = delete;
  virtual ~Interface() = default;
};

}  // namespace wifi_profile
