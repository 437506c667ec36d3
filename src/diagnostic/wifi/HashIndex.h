// An index of the positions of elements in a vector, by the hash of their names.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace wifi_profile {

// An open-addressing table of positions, at most half full. It stores only hashes and positions;
// the caller decides which position matches. Hashes must be spread over all 64 bits. Not
// synchronised.
class HashIndex {
 public:
  using Position = std::uint32_t;
  static constexpr Position kNone = UINT32_MAX;

  // Has room for `count` positions; more may be added.
  explicit HashIndex(std::size_t count = 0) { rebuild(count); }

  // Returns the position added under `hash` for which `isMeant(position)` is true, or kNone.
  template <class IsMeant>
  Position find(std::uint64_t hash, IsMeant isMeant) const {
    const std::uint32_t tag = tagOf(hash);
    for (std::size_t i = home(tag); slots_[i].position != kNone; i = next(i)) {
      if (slots_[i].tag == tag && isMeant(slots_[i].position)) return slots_[i].position;
    }
    return kNone;
  }

  // The position must not be in the table yet.
  void add(std::uint64_t hash, Position position) {
    if (count_ * 2 > mask_) rebuild(count_ + 1);
    place({tagOf(hash), position});
    ++count_;
  }

  // The position must be in the table, under this hash.
  void move(std::uint64_t hash, Position from, Position to) {
    slots_[at(hash, from)].position = to;
  }

  void remove(std::uint64_t hash, Position position) {
    std::size_t gap = at(hash, position);
    // An entry that was displaced past the gap moves into it.
    for (std::size_t i = next(gap); slots_[i].position != kNone; i = next(i)) {
      const std::size_t wayToGap = (gap - home(slots_[i].tag)) & mask_;
      const std::size_t wayToHere = (i - home(slots_[i].tag)) & mask_;
      if (wayToGap > wayToHere) continue;
      slots_[gap] = slots_[i];
      gap = i;
    }
    slots_[gap] = {};
    --count_;
  }

 private:
  struct Slot {
    std::uint32_t tag = 0;
    Position position = kNone;
  };

  static constexpr std::size_t kFewestSlots = 8;

  // The upper half of the hash. Its upper bits select the slot where a search begins.
  static std::uint32_t tagOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32U); }
  std::size_t home(std::uint32_t tag) const { return tag >> shift_; }
  std::size_t next(std::size_t slot) const { return (slot + 1) & mask_; }

  std::size_t at(std::uint64_t hash, Position position) const {
    std::size_t i = home(tagOf(hash));
    while (slots_[i].position != position) i = next(i);
    return i;
  }

  void place(Slot slot) {
    std::size_t i = home(slot.tag);
    while (slots_[i].position != kNone) i = next(i);
    slots_[i] = slot;
  }

  void rebuild(std::size_t count) {
    const std::size_t size = std::bit_ceil(std::max(count * 2, kFewestSlots));
    const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(size));
    mask_ = size - 1;
    shift_ = 32 - static_cast<unsigned>(std::countr_zero(size));
    for (const Slot& slot : before) {
      if (slot.position != kNone) place(slot);
    }
  }

  std::vector<Slot> slots_;  // the number of slots is a power of two, at most 2^31
  std::size_t mask_ = 0;     // the number of slots minus one
  std::size_t count_ = 0;
  unsigned shift_ = 0;  // from a tag to a slot
};

}  // namespace wifi_profile
