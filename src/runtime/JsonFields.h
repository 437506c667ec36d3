// Reads JSON values that must have a certain form, field by field, and records the first one that
// does not, with its place.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <iterator>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "diagnostic/platform/Date.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Result.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile::runtime {

// Returns the error "found FOUND, expected EXPECTED" about `subject`. Long texts are shortened.
Error unexpected(std::string_view subject, std::string_view found, std::string_view expected);

class FieldsReader;

// One value and its place, a JSON pointer (RFC 6901). Every reading operation records an error if
// the value is unsuitable and then returns a default, so that reading can continue. Only the first
// error is kept.
class ValueReader {
 public:
  ValueReader(ObjectRef value, std::string pointer, Status& firstError)
      : value_(std::move(value)), pointer_(std::move(pointer)), error_(&firstError) {}

  const ObjectRef& value() const { return value_; }

  bool boolean() const;
  std::int64_t integer(std::int64_t least = std::numeric_limits<std::int64_t>::min(),
                       std::int64_t most = std::numeric_limits<std::int64_t>::max()) const;
  double number(double least, double most) const;
  std::string text() const;
  TextRef textOrNull() const;                           // nil for null
  std::chrono::nanoseconds seconds(double most) const;  // 0 to `most`, in whole nanoseconds
  Date date() const;                                    // an ISO 8601 text
  std::optional<Date> dateOrNull() const;               // empty for null
  void mustBeTrue() const;

  // Calls `read` with every element of the list.
  void list(const std::function<void(const ValueReader&)>& read) const;

  // Calls `read` with the fields of the object. A field that `read` does not take is an error.
  void object(const std::function<void(FieldsReader&)>& read) const;

  ValueReader element(std::size_t index, ObjectRef value) const;
  ValueReader member(std::string_view key, ObjectRef value) const;

  // Records an error: this value is not what was `expected`. `found` replaces the description of
  // the value.
  void fail(std::string_view expected) const;
  void fail(std::string_view found, std::string_view expected) const;

 private:
  ObjectRef value_;
  std::string pointer_;
  Status* error_;
};

// The fields of an object, taken one by one.
class FieldsReader {
 public:
  FieldsReader(const ValueReader& object, Dictionary::Entries fields)
      : object_(object), fields_(std::move(fields)) {}

  // Calls `read` if the field exists. Returns true if it does.
  bool take(std::string_view key, const std::function<void(const ValueReader&)>& read);

  // Like `take`, but a missing field is an error.
  void require(std::string_view key, const std::function<void(const ValueReader&)>& read);

  // The object itself, for errors of the whole object.
  const ValueReader& object() const { return object_; }

  // Records an error for the first field that was not taken.
  void refuseOthers() const;

 private:
  const ValueReader& object_;
  Dictionary::Entries fields_;
  std::set<std::string, std::less<>> known_;
};

// Reads a document. The subject of an error is "NAME: at POINTER"; without a name, "at POINTER".
Status readDocument(const ObjectRef& document, std::string_view name,
                    const std::function<void(const ValueReader&)>& read);

// Describes a value in a few words for a message: `the text "yes"`, `the number 7`, `a list`.
std::string describe(const ObjectRef& value);

// Reads one of several texts that stand for values. The first one is the default. `choices`: pairs
// of text and value.
template <class Choices>
auto readChoice(const ValueReader& value, const Choices& choices) {
  const auto text = as<Text>(value.value());
  std::string expected;
  for (const auto& [name, choice] : choices) {
    if (text && text->string() == name) return choice;
    expected += (expected.empty() ? "one of \"" : ", \"") + std::string(name) + "\"";
  }
  value.fail(expected);
  return std::begin(choices)->second;
}

// Optional fields: the target keeps its value if the field is missing.
void takeText(FieldsReader& fields, std::string_view key, std::string& target);
void takeText(FieldsReader& fields, std::string_view key, std::optional<std::string>& target);
void takeFlag(FieldsReader& fields, std::string_view key, bool& target);
void takeFlag(FieldsReader& fields, std::string_view key, std::optional<bool>& target);
void takeTexts(FieldsReader& fields, std::string_view key, std::vector<std::string>& target);
// The same for a list of texts that `read` reads.
void takeTexts(FieldsReader& fields, std::string_view key, std::vector<std::string>& target,
               std::string (*read)(const ValueReader&));
void takeInteger(FieldsReader& fields, std::string_view key, int least, int most, int& target);
void takeInteger(FieldsReader& fields, std::string_view key, int least, int most,
                 std::optional<int>& target);

}  // namespace wifi_profile::runtime
