// The catalogue, listed.
#pragma once

#include <string>

namespace wifi_profile {

// For people: a table of id, name, label, and for each batch the configuration that the test is run
// with; beneath each test the keys it may write. Ends with a newline.
std::string testsText();

// For machines: one JSON array on one line, an object a test: "id", "name", "label", "batches",
// "configuration" (the configurations it is run with), "keys" (the result key, then the output
// keys).
std::string testsJson();

}  // namespace wifi_profile
