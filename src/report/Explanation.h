// Explains the keys of the record.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile::report {

// Explains one key. For a verdict: the question, the meaning of each answer, and how it is found
// out. For a value: its name, unit and explanation. For both: which tests write the key, into which
// sections, and when.
// Ends with a newline. Empty if the record never holds `key`, which is case-sensitive.
std::optional<std::string> explainText(std::string_view key);

// Explains a test's verdict, and the values that belong to it, to a person who already sees the
// answer. One line per paragraph, not wrapped; the last paragraph lists the keys. Contains no
// advice and does not end with a line feed.
std::string verdictExplanation(const CatalogueTest& test);

// Lists every key with its question or name, one per line. Ends with a newline.
std::string allKeysText();

// Returns up to 3 known keys that resemble `key`, the most similar first. Letter case is ignored.
// `key` may be any bytes.
std::vector<std::string> similarKeys(std::string_view key);

}  // namespace wifi_profile::report
