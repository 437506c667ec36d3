#include "diagnostic/platform/Dictionary.h"

#include <cassert>

namespace wifi_profile {

ObjectRef Dictionary::objectForKey(std::string_view key) const {
  const std::lock_guard lock(mutex_);
  const auto found = entries_.find(key);
  return found == entries_.end() ? nullptr : found->second;
}

void Dictionary::setObject(ObjectRef object, std::string_view key) {
  assert(object && "nil cannot be stored; use the null placeholder");
  const std::lock_guard lock(mutex_);
  entries_.insert_or_assign(std::string(key), std::move(object));
}

void Dictionary::removeObjectForKey(std::string_view key) {
  const std::lock_guard lock(mutex_);
  const auto found = entries_.find(key);
  if (found != entries_.end()) entries_.erase(found);
}

Dictionary::Entries Dictionary::entries() const {
  const std::lock_guard lock(mutex_);
  return entries_;
}

}  // namespace wifi_profile
