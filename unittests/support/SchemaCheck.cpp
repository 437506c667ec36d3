#include "support/SchemaCheck.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace wifi_profile::test {
namespace {

using Json = nlohmann::json;
using Fault = std::optional<std::string>;
using Words = std::set<std::string, std::less<>>;

const Words kTypes{"null", "boolean", "string", "array", "object", "number", "integer"};

bool isOfType(const Json& value, const std::string& type) {
  if (type == "integer") return value.is_number_integer();
  return value.is_number() ? type == "number" : type == value.type_name();
}

Json asList(const Json& value) { return value.is_array() ? value : Json::array({value}); }

// A long double holds every 64-bit integer.
bool isLess(const Json& left, const Json& right) {
  return left.get<long double>() < right.get<long double>();
}

// The subschema that a reference such as "#/$defs/name" means; null: none.
const Json* referred(const Json& root, const Json& reference) {
  const auto& text = reference.get_ref<const std::string&>();
  if (!text.starts_with('#')) return nullptr;
  const Json::json_pointer pointer(text.substr(1));
  return root.contains(pointer) ? &root[pointer] : nullptr;
}

// Throws when the schema uses anything that `Checker` would pass over.
void inspect(const Json& root, const Json& schema) {
  static const Words kPlain{"$schema", "$id",      "title",   "description", "const",   "enum",
                            "minimum", "required", "maximum", "minItems",    "maxItems"};
  static const Words kOneSchema{"items", "additionalProperties", "propertyNames", "not"};
  static const Words kManySchemas{"properties", "$defs", "anyOf", "oneOf"};
  if (schema.is_boolean()) return;
  for (const auto& [keyword, rule] : schema.items()) {
    if (kOneSchema.contains(keyword)) {
      inspect(root, rule);
    } else if (kManySchemas.contains(keyword)) {
      for (const Json& subschema : rule) inspect(root, subschema);
    } else if (keyword == "type") {
      for (const Json& type : asList(rule)) {
        if (!kTypes.contains(type)) throw std::invalid_argument("unknown type " + type.dump());
      }
    } else if (keyword == "$ref") {
      if (!referred(root, rule)) throw std::invalid_argument("nothing at " + rule.dump());
    } else if (!kPlain.contains(keyword)) {
      throw std::invalid_argument("unknown keyword \"" + keyword + "\"");
    }
  }
}

class Checker {
 public:
  explicit Checker(const Json& root) : root_(root) {}

  Fault check(const Json& schema, const Json& value, const Json::json_pointer& at) const {
    if (schema == false) return at.to_string() + " must not be there";
    if (schema == true) return std::nullopt;
    for (const auto& [keyword, rule] : schema.items()) {
      if (!holds(keyword, rule, value, at)) {
        return at.to_string() + " fails " + keyword + " " + rule.dump();
      }
      if (auto fault = inside(schema, keyword, rule, value, at)) return fault;
    }
    return std::nullopt;
  }

 private:
  // The keywords about the value as a whole.
  bool holds(std::string_view keyword, const Json& rule, const Json& value,
             const Json::json_pointer& at) const {
    const auto fits = [&](const Json& schema) { return !check(schema, value, at).has_value(); };
    const auto has = [&](const Json& name) { return value.contains(name.get<std::string>()); };
    const auto isType = [&](const Json& type) { return isOfType(value, type); };
    if (keyword == "type") {
      const Json types = asList(rule);
      return std::any_of(types.begin(), types.end(), isType);
    }
    if (keyword == "const") return value == rule;
    if (keyword == "enum") return std::find(rule.begin(), rule.end(), value) != rule.end();
    if (keyword == "anyOf") return std::any_of(rule.begin(), rule.end(), fits);
    if (keyword == "oneOf") return std::count_if(rule.begin(), rule.end(), fits) == 1;
    if (keyword == "not") return !fits(rule);
    if (keyword == "minimum") return !value.is_number() || !isLess(value, rule);
    if (keyword == "maximum") return !value.is_number() || !isLess(rule, value);
    if (keyword == "minItems") return !value.is_array() || value.size() >= rule.get<std::size_t>();
    if (keyword == "maxItems") return !value.is_array() || value.size() <= rule.get<std::size_t>();
    if (keyword == "required") {
      return !value.is_object() || std::all_of(rule.begin(), rule.end(), has);
    }
    return true;
  }

  // The keywords that lead to other schemas or into the value, whose own faults tell more.
  Fault inside(const Json& schema, std::string_view keyword, const Json& rule, const Json& value,
               const Json::json_pointer& at) const {
    if (keyword == "$ref") return check(*referred(root_, rule), value, at);
    if (keyword == "items" && value.is_array()) {
      for (std::size_t i = 0; i < value.size(); ++i) {
        if (auto fault = check(rule, value[i], at / i)) return fault;
      }
    }
    if (!value.is_object()) return std::nullopt;
    for (const auto& [name, member] : value.items()) {
      const bool known = schema.contains("properties") && schema["properties"].contains(name);
      Fault fault;
      if (keyword == "propertyNames") fault = check(rule, name, at / name);
      if (keyword == "properties" && known) fault = check(rule[name], member, at / name);
      if (keyword == "additionalProperties" && !known) fault = check(rule, member, at / name);
      if (fault) return fault;
    }
    return std::nullopt;
  }

  const Json& root_;
};

}  // namespace

SchemaCheck::SchemaCheck(Json schema) : schema_(std::move(schema)) { inspect(schema_, schema_); }

Fault SchemaCheck::fault(const Json& document) const {
  return Checker(schema_).check(schema_, document, Json::json_pointer());
}

}  // namespace wifi_profile::test
