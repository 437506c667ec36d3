// String-keyed dictionaries that one thread may write while another reads.
#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

#include "diagnostic/platform/Object.h"

namespace wifi_profile {

// Values by key, in bytewise order of the keys. A `DictionaryRef` gives read access only; a
// `MutableDictionaryRef` also gives write access. Every call takes an internal mutex, so any thread
// may read a dictionary while its owner writes it.
class Dictionary final : public Object {
 public:
  using Entries = std::map<std::string, ObjectRef, std::less<>>;

  Dictionary() = default;
  explicit Dictionary(Entries entries) : entries_(std::move(entries)) {}

  // Returns nil if there is no such key.
  ObjectRef objectForKey(std::string_view key) const;

  // Replaces the value of `key`. `object` must not be nil.
  void setObject(ObjectRef object, std::string_view key);
  void removeObjectForKey(std::string_view key);

  // Returns a copy of the current entries. The values are shared, not copied.
  Entries entries() const;

 private:
  mutable std::mutex mutex_;
  Entries entries_;
};

using DictionaryRef = std::shared_ptr<const Dictionary>;  // nil: no dictionary
using MutableDictionaryRef = std::shared_ptr<Dictionary>;

inline DictionaryRef makeDictionary(Dictionary::Entries entries) {
  return std::make_shared<const Dictionary>(std::move(entries));
}

}  // namespace wifi_profile
