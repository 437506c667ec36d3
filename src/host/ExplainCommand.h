// What is known of one key of the record.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/Catalogue.h"

namespace wifi_profile {

// For a verdict the question and what each answer means; for a value its name, unit and
// explanation; for both, which tests write it into which sections, and when. Ends with a newline.
// Nothing for a key that the record never holds; letter cases must match.
std::optional<std::string> explainText(std::string_view key);

// The same of a test's verdict for a person who has the answer before them, with the values that
// stand beside it: a paragraph a line, none broken to a width, the keys in the last one. Without
// advice, and without a line feed at the end.
std::string verdictExplanation(const CatalogueTest& test);

// Every key with its question or name, a line each. Ends with a newline.
std::string allKeysText();

// The known keys that look like `key`, the most alike first, a few at most; letter cases do not
// count. `key` may be any bytes.
std::vector<std::string> similarKeys(std::string_view key);

}  // namespace wifi_profile
