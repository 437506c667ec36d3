#include "diagnostic/wifi/NameOrder.h"

#include <algorithm>
#include <string>
#include <utility>

#include "diagnostic/platform/NameCollator.h"

namespace wifi_profile {
namespace {

// Reads eight bytes as a number; numbers compare as the bytes do.
std::uint64_t numberAt(const char* bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < sizeof number; ++i) {
    number = number << 8U | static_cast<unsigned char>(bytes[i]);
  }
  return number;
}

}  // namespace

std::size_t NameOrder::count() const {
  const std::lock_guard lock(mutex_);
  return entries_.size();
}

NameOrder::Number NameOrder::addName(const TextRef& name) {
  const auto number = static_cast<Number>(entries_.size());
  entries_.push_back({.name = name, .key = {}});
  numbers_.add(name->hash(), number);
  return number;
}

void NameOrder::setKey(Entry& entry, std::string_view key) {
  // Zeros pad a short key, so that its front can be read.
  const std::size_t size = std::max(key.size(), sizeof entry.front);
  char* const bytes = static_cast<char*>(keys_->allocate(size, 1));
  std::fill(std::copy(key.begin(), key.end(), bytes), bytes + size, '\0');
  entry.key = {bytes, key.size()};
  entry.front = {numberAt(bytes), numberAt(bytes + sizeof entry.front[0])};
}

void NameOrder::sortNewNames() {
  const std::size_t known = inOrder_.size();
  if (known == entries_.size()) return;
  const auto collator = NameCollator::shared();
  std::string key;
  for (auto number = static_cast<Number>(known); number < entries_.size(); ++number) {
    Entry& entry = entries_[number];
    key.clear();
    collator->appendSortKey(entry.name->string(), key);
    setKey(entry, key);
    inOrder_.push_back(number);
  }
  const auto before = [this](Number one, Number other) {
    return isBefore(entries_[one], entries_[other]);
  };
  const auto firstNew = inOrder_.begin() + static_cast<std::ptrdiff_t>(known);
  std::sort(firstNew, inOrder_.end(), before);
  std::inplace_merge(inOrder_.begin(), firstNew, inOrder_.end(), before);
}

void NameOrder::keepWithinBounds() {
  const std::size_t most = largestPass_ * kRemembered;
  if (entries_.size() > most) forgetAllBefore(latestScan_);
  if (entries_.size() > most) forgetAllBefore(pass_);
}

void NameOrder::forgetAllBefore(std::uint64_t pass) {
  const auto oldKeys = std::exchange(keys_, std::make_unique<KeyMemory>());
  const std::vector<Entry> oldEntries = std::exchange(entries_, {});
  std::vector<Number> newNumbers(oldEntries.size(), HashIndex::kNone);
  for (std::size_t number = 0; number < oldEntries.size(); ++number) {
    if (oldEntries[number].lastPass < pass) continue;
    newNumbers[number] = static_cast<Number>(entries_.size());
    setKey(entries_.emplace_back(oldEntries[number]), oldEntries[number].key);
  }
  for (Number& number : inOrder_) number = newNumbers[number];
  std::erase(inOrder_, HashIndex::kNone);
  numbers_ = HashIndex(entries_.size());
  for (std::size_t number = 0; number < entries_.size(); ++number) {
    numbers_.add(entries_[number].name->hash(), static_cast<Number>(number));
  }
}

NameOrder::Pass::Pass(NameOrder& order, Of what) : order_(order), lock_(order.mutex_) {
  ++order_.pass_;
  if (what == Of::scan) order_.latestScan_ = order_.pass_;
}

NameOrder::Pass::~Pass() {
  order_.largestPass_ = std::max(order_.largestPass_, names_);
  order_.keepWithinBounds();
}

const std::vector<NameOrder::Pass::Number>& NameOrder::Pass::inOrder() {
  order_.sortNewNames();
  return order_.inOrder_;
}

}  // namespace wifi_profile
