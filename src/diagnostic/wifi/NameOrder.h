// The order of network names, cached from scan to scan.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <memory_resource>
#include <mutex>
#include <string_view>
#include <vector>

#include "diagnostic/platform/Text.h"
#include "diagnostic/wifi/HashIndex.h"

namespace wifi_profile {

// Caches names, their sort keys and their order: first by sort key, then by bytes. The shared
// `NameCollator` computes the key of a name once, for as long as the name is cached; the collator
// must stay the same for the lifetime of the order. Names are processed in passes. Synchronised by
// an internal mutex: passes of several threads run one after another.
class NameOrder {
 public:
  class Pass;

  NameOrder() = default;
  NameOrder(const NameOrder&) = delete;
  NameOrder& operator=(const NameOrder&) = delete;

  // Between two passes, the cache holds at most this multiple of the names of the largest pass.
  static constexpr std::size_t kRemembered = 3;

  // Returns the number of cached names. Any thread.
  std::size_t count() const;

 private:
  using Number = HashIndex::Position;
  using KeyMemory = std::pmr::monotonic_buffer_resource;

  // The first sixteen bytes of a sort key as two numbers that compare as the bytes do.
  using KeyFront = std::array<std::uint64_t, 2>;

  struct Entry {
    TextRef name;
    std::uint64_t lastPass = 0;  // the latest pass that requested the name
    KeyFront front{};            // of `key`
    std::string_view key;        // in `keys_`
  };

  Number addName(const TextRef& name);
  void sortNewNames();
  void setKey(Entry& entry, std::string_view key);
  void keepWithinBounds();
  void forgetAllBefore(std::uint64_t pass);

  // Most keys differ in their fronts, which are fast to compare.
  static int compareKeys(const Entry& one, const Entry& other) {
    if (one.front[0] != other.front[0]) return one.front[0] < other.front[0] ? -1 : 1;
    if (one.front[1] != other.front[1]) return one.front[1] < other.front[1] ? -1 : 1;
    return one.key.compare(other.key);
  }
  static bool isBefore(const Entry& one, const Entry& other) {
    const int keys = compareKeys(one, other);
    return keys != 0 ? keys < 0 : one.name->string() < other.name->string();
  }

  mutable std::mutex mutex_;
  std::vector<Entry> entries_;  // by number
  HashIndex numbers_;           // by name
  std::unique_ptr<KeyMemory> keys_ = std::make_unique<KeyMemory>();
  std::vector<Number> inOrder_;  // numbers of the first entries, sorted; later entries are new
  std::uint64_t pass_ = 0;
  std::uint64_t latestScan_ = 0;  // the pass of the latest scan
  std::size_t largestPass_ = 0;   // names
};

// One pass over the names of a scan or of a list. Holds the mutex of the order for its lifetime.
class NameOrder::Pass {
 public:
  using Number = NameOrder::Number;

  // The names of the latest scan are removed last.
  enum class Of { scan, list };

  Pass(NameOrder& order, Of what);
  Pass(const Pass&) = delete;
  Pass& operator=(const Pass&) = delete;
  ~Pass();  // removes the names beyond the limit

  // Returns the number of a name, which must not be nil. Equal names have the same number, and it
  // is less than `count`. The number is valid in this pass only.
  Number numberOf(const TextRef& name) {
    const Number known = order_.numbers_.find(name->hash(), [&](Number candidate) {
      const TextRef& text = order_.entries_[candidate].name;
      return text == name || text->string() == name->string();
    });
    const Number number = known == HashIndex::kNone ? order_.addName(name) : known;
    std::uint64_t& lastPass = order_.entries_[number].lastPass;
    if (lastPass != order_.pass_) ++names_;
    lastPass = order_.pass_;
    return number;
  }
  std::size_t count() const { return order_.entries_.size(); }

  // Returns the numbers of all cached names in their order, including names that were not requested
  // in this pass. Valid until the next `numberOf`.
  const std::vector<Number>& inOrder();

  // Returns whether the sort key of `one` is less than that of `other`. Only after `inOrder`.
  bool hasSmallerKey(Number one, Number other) const {
    return order_.compareKeys(order_.entries_[one], order_.entries_[other]) < 0;
  }

 private:
  NameOrder& order_;
  const std::lock_guard<std::mutex> lock_;
  std::size_t names_ = 0;  // requested in this pass
};

}  // namespace wifi_profile
