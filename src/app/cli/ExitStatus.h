// The program's exit statuses. A finished run exits with the absolute value of its status code.
#pragma once

namespace wifi_profile::cli {

// Values from 64 to 78 are those of sysexits.h where it defines one for the case.
inline constexpr int kExitDone = 0;
inline constexpr int kExitUsage = 64;         // wrong command line, unacceptable parameters
inline constexpr int kExitScenario = 65;      // unusable scenario, or a step that cannot be done
inline constexpr int kExitNoDevice = 69;      // no such device
inline constexpr int kExitSystem = 71;        // no memory, descriptors or threads left
inline constexpr int kExitOutput = 74;        // output that cannot be written
inline constexpr int kExitTornDown = 75;      // torn down before the run finished
inline constexpr int kExitSettings = 78;      // settings that cannot be used
inline constexpr int kExitInterrupted = 130;  // SIGINT, SIGTERM or SIGHUP

}  // namespace wifi_profile::cli
