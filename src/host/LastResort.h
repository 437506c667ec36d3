// The end of a program that the system gives too little to go on.
#pragma once

namespace wifi_profile {

// From now on an exception that nothing handles, on any thread, ends the process with one sentence
// on standard error and the status kExitSystem. At the program's start.
void installLastResort();

}  // namespace wifi_profile
