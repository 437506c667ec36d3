// The common base of every value that a dictionary can hold.
#pragma once

#include <memory>

namespace wifi_profile {

// A value with identity. Objects are immutable once shared, except `Dictionary`, which guards
// itself. A null reference is nil: "there is no value"; it is never stored in a dictionary.
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object() = default;
};

using ObjectRef = std::shared_ptr<const Object>;

// `object` as a T, or nil when it is nil or something else.
template <class T>
std::shared_ptr<const T> as(const ObjectRef& object) {
  return std::dynamic_pointer_cast<const T>(object);
}

// The null placeholder: the one object that stands, inside a dictionary or an array, for a value
// that is known to be missing. It is present, unlike nil.
ObjectRef nullPlaceholder();

bool isNullPlaceholder(const ObjectRef& object);

}  // namespace wifi_profile
