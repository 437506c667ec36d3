// String-keyed dictionaries, safe to write on one thread while another reads.
#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/Object.h"

namespace wifi_profile {

// Values by key, in bytewise order of the keys. Who holds a `DictionaryRef` sees an immutable
// dictionary; who holds a `MutableDictionaryRef` may write. Every call is synchronised inside, so
// a dictionary may be read on any thread while its owner still writes.
class Dictionary final : public Object {
 public:
  using Entries = std::map<std::string, ObjectRef, std::less<>>;

  Dictionary() = default;
  explicit Dictionary(Entries entries) : entries_(std::move(entries)) {}

  // nil when there is no such key.
  ObjectRef objectForKey(std::string_view key) const;

  // `object` must not be nil. Replaces what the key held.
  void setObject(ObjectRef object, std::string_view key);
  void removeObjectForKey(std::string_view key);

  // A copy of the entries as they stand now; the values themselves are shared, not copied.
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
