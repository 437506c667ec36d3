// Messages of the program besides its results.
#pragma once

#include <string>
#include <string_view>

namespace wifi_profile::cli {

// A problem that ends the program, and the exit status.
struct Failure {
  int status;
  std::string message;
};

// Writes the message to standard error. Returns the status.
int complain(const Failure& failure);

bool environmentHas(const char* name);
// Returns true if the descriptor is a terminal that can be drawn on.
bool isTerminal(int descriptor);

// Returns a message that `place` cannot be written to. `error` is the `errno` of the failed write.
std::string cannotBeWritten(std::string_view place, int error);

}  // namespace wifi_profile::cli
