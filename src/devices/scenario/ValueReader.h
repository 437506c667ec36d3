// Reads values that must have a certain form, and records the first one that does not, with its
// place.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "diagnostic/platform/Date.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile::scenario {

// What is wrong with a value, and where.
struct Fault {
  std::string pointer;   // JSON pointer (RFC 6901); empty: the whole document
  std::string found;     // what is there
  std::string expected;  // what should be there
};

class FieldsReader;

// One value and its place. Every reading operation records a fault if the value is unsuitable and
// then returns a default, so that reading can continue. Only the first fault is kept.
class ValueReader {
 public:
  ValueReader(ObjectRef value, std::string pointer, std::optional<Fault>& firstFault)
      : value_(std::move(value)), pointer_(std::move(pointer)), fault_(&firstFault) {}

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

  // Calls `read` with the fields of the object. A field that `read` does not take is a fault.
  void object(const std::function<void(FieldsReader&)>& read) const;

  ValueReader element(std::size_t index, ObjectRef value) const;
  ValueReader member(std::string_view key, ObjectRef value) const;

  // Records a fault: this value is not what was `expected`. `found` replaces the description of the
  // value.
  void fail(std::string expected) const;
  void fail(std::string found, std::string expected) const;

 private:
  ObjectRef value_;
  std::string pointer_;
  std::optional<Fault>* fault_;
};

// The fields of an object, taken one by one.
class FieldsReader {
 public:
  FieldsReader(const ValueReader& object, Dictionary::Entries fields)
      : object_(object), fields_(std::move(fields)) {}

  // Calls `read` if the field exists. Returns true if it does.
  bool take(std::string_view key, const std::function<void(const ValueReader&)>& read);

  // Like `take`, but a missing field is a fault.
  void require(std::string_view key, const std::function<void(const ValueReader&)>& read);

  // The object itself, for faults of the whole object.
  const ValueReader& object() const { return object_; }

  // Records a fault for the first field that was not taken.
  void refuseOthers() const;

 private:
  const ValueReader& object_;
  Dictionary::Entries fields_;
  std::set<std::string, std::less<>> known_;
};

// Describes a value in a few words for a message: `the text "yes"`, `the number 7`, `a list`.
std::string describe(const ObjectRef& value);

}  // namespace wifi_profile::scenario
