// Checks JSON documents against a JSON Schema (draft 2020-12), with the few keywords that this
// project's schema needs.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace wifi_profile::test {

// An integer is a number written without point or exponent: stricter than the standard, which
// counts 1.0 as one, too.
class SchemaCheck {
 public:
  // Throws std::invalid_argument for a keyword or type that it does not know, so that no rule goes
  // unchecked, and for a reference that leads nowhere in the schema itself.
  explicit SchemaCheck(nlohmann::json schema);

  // The first fault: the JSON pointer of the value, and what is wrong with it. Nothing: valid.
  std::optional<std::string> fault(const nlohmann::json& document) const;

 private:
  const nlohmann::json schema_;
};

}  // namespace wifi_profile::test
