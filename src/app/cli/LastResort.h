// Ends the program when the system is out of resources.
#pragma once

namespace wifi_profile::cli {

// Installs a handler for unhandled exceptions on any thread: it writes one sentence to standard
// error and ends the process with kExitSystem. Call at program start.
void installLastResort();

}  // namespace wifi_profile::cli
