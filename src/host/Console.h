// What the program says beside its results, and where.
#pragma once

#include <string>
#include <string_view>

namespace wifi_profile {

// A problem that ends the program, and the status it ends with.
struct Failure {
  int status;
  std::string message;
};

// Writes what went wrong to standard error, and returns the status.
int complain(const Failure& failure);

bool environmentHas(const char* name);
// A terminal that can be drawn on.
bool isTerminal(int descriptor);

// That a place cannot be written to, with the `errno` of that.
std::string cannotBeWritten(std::string_view place, int error);

}  // namespace wifi_profile
