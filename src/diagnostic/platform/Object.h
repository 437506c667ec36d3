// The common base of every value that a dictionary can hold.
#pragma once

#include <memory>

namespace wifi_profile {

// A value with identity. Objects are immutable once shared, except `Dictionary`, which synchronises
// its own access. A null reference is nil, the absence of a value; nil is never stored in a
// dictionary.
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;
};

using ObjectRef = std::shared_ptr<const Object>;

// Returns `object` as a T, or nil if it is nil or of another type.
template <class T>
std::shared_ptr<const T> as(const ObjectRef& object) {
  return std::dynamic_pointer_cast<const T>(object);
}

// Returns the null placeholder: the one object that stands for a missing value in a dictionary or
// an array. It is a value, unlike nil.
ObjectRef nullPlaceholder();

bool isNullPlaceholder(const ObjectRef& object);

}  // namespace wifi_profile
