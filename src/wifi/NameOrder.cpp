#include "wifi/NameOrder.h"

#include <algorithm>
#include <utility>

#include "platform/NameCollator.h"

namespace wifi_profile {
namespace {

constexpr std::size_t kPrefix = 8;  // bytes

// The first bytes of a key as a number that has their order; a short key is filled up with zeros.
std::uint64_t prefixOf(std::string_view key) {
  std::uint64_t prefix = 0;
  for (std::size_t i = 0; i < kPrefix; ++i) {
    prefix = prefix << 8U | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
  }
  return prefix;
}

}  // namespace

std::size_t NameOrder::count() const {
  const std::lock_guard lock(mutex_);
  return entries_.size();
}

std::string_view NameOrder::keyOf(const Entry& entry) const {
  return std::string_view(keys_).substr(entry.keyBegin, entry.keyLength);
}

int NameOrder::compareKeys(const Entry& one, const Entry& other) const {
  if (one.prefix != other.prefix) return one.prefix < other.prefix ? -1 : 1;
  return keyOf(one).compare(keyOf(other));
}

bool NameOrder::isBefore(Number one, Number other) const {
  const int keys = compareKeys(entries_[one], entries_[other]);
  if (keys != 0) return keys < 0;
  return entries_[one].name->string() < entries_[other].name->string();
}

void NameOrder::sortNewNames() {
  const std::size_t known = inOrder_.size();
  if (known == entries_.size()) return;
  const auto collator = NameCollator::shared();
  for (auto number = static_cast<Number>(known); number < entries_.size(); ++number) {
    Entry& entry = entries_[number];
    entry.keyBegin = keys_.size();
    collator->appendSortKey(entry.name->string(), keys_);
    entry.keyLength = keys_.size() - entry.keyBegin;
    entry.prefix = prefixOf(keyOf(entry));
    inOrder_.push_back(number);
  }
  const auto before = [this](Number one, Number other) { return isBefore(one, other); };
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
  std::vector<Entry> kept;
  std::string keys;
  std::vector<Number> newNumbers(entries_.size(), HashIndex::kNone);
  for (std::size_t number = 0; number < entries_.size(); ++number) {
    Entry& entry = entries_[number];
    if (entry.lastPass < pass) continue;
    newNumbers[number] = static_cast<Number>(kept.size());
    const std::size_t begin = keys.size();
    keys += keyOf(entry);
    entry.keyBegin = begin;
    kept.push_back(std::move(entry));
  }
  std::vector<Number> inOrder;
  for (const Number number : inOrder_) {
    if (newNumbers[number] != HashIndex::kNone) inOrder.push_back(newNumbers[number]);
  }
  entries_ = std::move(kept);
  keys_ = std::move(keys);
  inOrder_ = std::move(inOrder);
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

NameOrder::Pass::Number NameOrder::Pass::numberOf(const TextRef& name) {
  std::vector<Entry>& entries = order_.entries_;
  Number number = order_.numbers_.find(name->hash(), [&](Number candidate) {
    const TextRef& known = entries[candidate].name;
    return known == name || known->string() == name->string();
  });
  if (number == HashIndex::kNone) {
    number = static_cast<Number>(entries.size());
    entries.push_back({.name = name, .lastPass = 0, .prefix = 0});
    order_.numbers_.add(name->hash(), number);
  }
  if (entries[number].lastPass != order_.pass_) ++names_;
  entries[number].lastPass = order_.pass_;
  return number;
}

const std::vector<NameOrder::Pass::Number>& NameOrder::Pass::inOrder() {
  order_.sortNewNames();
  return order_.inOrder_;
}

}  // namespace wifi_profile
