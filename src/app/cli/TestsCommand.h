// The command `wifi-profile tests`: lists the catalogue.
#pragma once

#include <string>

namespace wifi_profile::cli {

// Returns a table of id, name, label and, for each batch, the configuration that the test runs
// with. The lines below each test list the keys that it may write. Ends with a newline.
std::string testsText();

// Returns one JSON array on one line, with an object per test: "id", "name", "label", "batches",
// "configuration" (the configurations that it runs with), "keys" (the result key, then the output
// keys).
std::string testsJson();

}  // namespace wifi_profile::cli
