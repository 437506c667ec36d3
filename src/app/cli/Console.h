// Messages of the program besides its results.
#pragma once

#include <string>
#include <string_view>

#include "diagnostic/platform/Result.h"

namespace wifi_profile::cli {

// An error that ends the program, and the exit status.
struct Failure {
  int status;
  Error error;
};

// Returns "SUBJECT: MESSAGE ADVICE", safe to show.
std::string textOf(const Error& error);

// Writes the message to standard error. Returns the status.
int complain(int status, std::string_view message);
int complain(const Failure& failure);

bool environmentHas(const char* name);
// Returns true if the descriptor is a terminal that can be drawn on.
bool isTerminal(int descriptor);

}  // namespace wifi_profile::cli
