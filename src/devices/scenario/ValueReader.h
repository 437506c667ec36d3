// Reads values that must have a certain shape, and notes the first one that has not, with its
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

#include "platform/Date.h"
#include "platform/Dictionary.h"
#include "platform/Text.h"

namespace wifi_profile::scenario {

// What is wrong with a value, and where.
struct Fault {
  std::string pointer;   // JSON pointer (RFC 6901); empty: the whole document
  std::string found;     // what stands there
  std::string expected;  // what should
};

class FieldsReader;

// One value and its place. Every reading operation notes a fault when the value will not do and
// then returns a default, so that reading can go on to its end; only the first fault is kept.
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
  std::optional<Date> dateOrNull() const;               // nothing for null
  void mustBeTrue() const;

  // Calls `read` with every element of the list.
  void list(const std::function<void(const ValueReader&)>& read) const;

  // Calls `read` with the fields of the object; what it does not take is a fault.
  void object(const std::function<void(FieldsReader&)>& read) const;

  ValueReader element(std::size_t index, ObjectRef value) const;
  ValueReader member(std::string_view key, ObjectRef value) const;

  // Notes that this value is not what was `expected`; what was found is described, or given.
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

  // Calls `read` when there is such a field, and says whether there is.
  bool take(std::string_view key, const std::function<void(const ValueReader&)>& read);

  // The same for a field that must be there.
  void require(std::string_view key, const std::function<void(const ValueReader&)>& read);

  // The object itself, to note a fault of the whole.
  const ValueReader& object() const { return object_; }

  // Notes the first field that was not taken.
  void refuseOthers() const;

 private:
  const ValueReader& object_;
  Dictionary::Entries fields_;
  std::set<std::string, std::less<>> known_;
};

// A value in a few words for a message: `the text "yes"`, `the number 7`, `a list`.
std::string describe(const ObjectRef& value);

}  // namespace wifi_profile::scenario
