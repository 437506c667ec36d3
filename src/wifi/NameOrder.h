// The order of network names, remembered from scan to scan.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <memory_resource>
#include <mutex>
#include <string_view>
#include <vector>

#include "platform/Text.h"
#include "wifi/HashIndex.h"

namespace wifi_profile {

// Remembers names, their sort keys and their order: first by sort key, then by bytes. A name's key
// is asked of the shared `NameCollator` once, while the name is remembered; that collator must stay
// the same for the life of the order. Work on names is done in passes. Synchronised inside: passes
// of several threads follow one another.
class NameOrder {
 public:
  class Pass;

  NameOrder() = default;
  NameOrder(const NameOrder&) = delete;
  NameOrder& operator=(const NameOrder&) = delete;

  // At most this many times the names of the largest pass are remembered between two passes.
  static constexpr std::size_t kRemembered = 3;

  // How many names are remembered now. Any thread.
  std::size_t count() const;

 private:
  using Number = HashIndex::Position;
  using KeyMemory = std::pmr::monotonic_buffer_resource;

  // The first sixteen bytes of a sort key as two numbers that have their order.
  using KeyFront = std::array<std::uint64_t, 2>;

  struct Entry {
    TextRef name;
    std::uint64_t lastPass = 0;  // the latest that asked for the name
    KeyFront front{};            // of `key`
    std::string_view key;        // in `keys_`
  };

  Number addName(const TextRef& name);
  void sortNewNames();
  void setKey(Entry& entry, std::string_view key);
  void keepWithinBounds();
  void forgetAllBefore(std::uint64_t pass);

  // Most keys differ in their fronts, and these are compared at once.
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
  std::vector<Number> inOrder_;  // of the first entries; those that are still missing here are new
  std::uint64_t pass_ = 0;
  std::uint64_t latestScan_ = 0;  // the pass that was the latest scan
  std::size_t largestPass_ = 0;   // names
};

// One walk over the names of a scan or of a list. It holds the order's lock for its life.
class NameOrder::Pass {
 public:
  using Number = NameOrder::Number;

  // The names of the latest scan are the last to be forgotten.
  enum class Of { scan, list };

  Pass(NameOrder& order, Of what);
  Pass(const Pass&) = delete;
  Pass& operator=(const Pass&) = delete;
  ~Pass();  // forgets what is too much

  // The number of a name, which must not be nil: the same for equal names, and below `count`. It is
  // valid in this pass only.
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

  // The numbers of all names in their order, also of names that nobody asked for in this pass.
  // Valid until the next `numberOf`.
  const std::vector<Number>& inOrder();

  // Whether the sort key of a name is before that of another. Only after `inOrder`.
  bool hasSmallerKey(Number one, Number other) const {
    return order_.compareKeys(order_.entries_[one], order_.entries_[other]) < 0;
  }

 private:
  NameOrder& order_;
  const std::lock_guard<std::mutex> lock_;
  std::size_t names_ = 0;  // that this pass asked for
};

}  // namespace wifi_profile
