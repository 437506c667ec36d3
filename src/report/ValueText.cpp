#include "report/ValueText.h"

#include <cmath>
#include <fmt/format.h>
#include <span>

#include "analysis/facts/SecurityKinds.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "runtime/JsonWriter.h"
#include "runtime/SafeText.h"

namespace wifi_profile::report {
namespace {

constexpr std::size_t kLongestText = 320;  // longest text shown, in characters
constexpr std::size_t kMostEntries = 12;   // most entries shown of one dictionary

constexpr std::string_view kSecurity = "security";  // a number with a name

std::string shortened(std::string text) {
  if (characterCount(text) <= kLongestText) return text;
  std::string_view rest = text;
  for (std::size_t i = 0; i < kLongestText; ++i) rest.remove_prefix(firstCodePoint(rest).length);
  return text.substr(0, text.size() - rest.size()) + "…";
}

// Quotes the text if it could be read as several values or as none.
std::string textOf(const std::string& text) {
  const std::string safe = shownText(text);
  const bool plain = !safe.empty() && safe.front() != ' ' && safe.back() != ' ' &&
                     safe.find_first_of(",;()\"") == std::string::npos;
  return plain ? safe : '"' + safe + '"';
}

std::string textOf(bool boolean) { return boolean ? "yes" : "no"; }
std::string textOf(std::int64_t integer) { return fmt::format("{}", integer); }
std::string textOf(std::uint64_t integer) { return fmt::format("{}", integer); }
std::string textOf(double number) {
  if (std::isnan(number)) return "unknown";
  if (std::isinf(number)) return number < 0 ? "minus infinity" : "infinity";
  constexpr double kLeast = 0.001;
  constexpr double kMost = 1e6;
  const double size = std::abs(number);
  if (size != 0 && (size < kLeast || size >= kMost)) return fmt::format("{:.3g}", number);
  std::string text = fmt::format("{:.3f}", number);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

// Formats a plain value, and any other value as JSON.
std::string textOf(const ObjectRef& value) {
  if (isNullPlaceholder(value)) return "unknown";
  if (const auto text = as<Text>(value)) return textOf(text->string());
  if (const auto number = as<Number>(value)) {
    return std::visit([](auto held) { return textOf(held); }, number->value());
  }
  return shownText(runtime::jsonText(value));
}

std::string textOf(const Array& array) {
  std::string list;
  for (const ObjectRef& element : array.elements()) {
    if (!list.empty()) list += '/';
    list += textOf(element);
  }
  return list.empty() ? "none" : shortened(std::move(list));
}

// Returns the name of a remembered network's security; a number without a name is shown as a
// number.
std::string securityText(const ObjectRef& value) {
  const auto number = as<Number>(value);
  if (number && !number->isBoolean() && !number->isDouble()) {
    for (const auto& [name, security] : facts::kSecurityNames) {
      if (number->toDouble() == static_cast<double>(security)) return std::string(name);
    }
  }
  return textOf(value);
}

// Appends the unit to a number, unless the number is boolean or not finite.
std::string entryText(const EntryName& entry, const ObjectRef& value) {
  if (entry.key == kSecurity) return securityText(value);
  const auto number = as<Number>(value);
  const bool hasUnit = !entry.unit.empty() && number && !number->isBoolean() &&
                       !(number->isDouble() && !std::isfinite(number->toDouble()));
  return hasUnit ? fmt::format("{} {}", textOf(value), entry.unit) : textOf(value);
}

std::vector<std::string> entryPieces(std::span<const EntryName> names, Dictionary::Entries rest) {
  std::vector<std::string> pieces;
  for (const EntryName& entry : names) {
    const auto found = rest.find(entry.key);
    if (found == rest.end()) continue;
    pieces.push_back(fmt::format("{} {}", entry.name, entryText(entry, found->second)));
    rest.erase(found);
  }
  for (const auto& [key, value] : rest) {
    if (pieces.size() == kMostEntries) {
      pieces.emplace_back("…");
      break;
    }
    pieces.push_back(fmt::format("{} {}", textOf(key), textOf(value)));
  }
  return pieces;
}

}  // namespace

std::string shownText(std::string_view text) { return shortened(runtime::safeText(text)); }

std::vector<std::string> valuePieces(const InformationCopy& copy, const ObjectRef& value) {
  if (const auto dictionary = as<Dictionary>(value)) {
    auto pieces = entryPieces(copy.entries, dictionary->entries());
    if (pieces.empty()) pieces.emplace_back("nothing");
    pieces.front() = fmt::format("{}: {}", copy.name, pieces.front());
    return pieces;
  }
  const auto array = as<Array>(value);
  std::string piece = fmt::format("{} {}", copy.name, array ? textOf(*array) : textOf(value));
  const auto number = as<Number>(value);
  if (number && !number->isBoolean() && !copy.unit.empty()) {
    std::string_view unit = copy.unit;
    if (number->toDouble() == 1 && unit.ends_with('s')) unit.remove_suffix(1);  // "1 beacon"
    piece += fmt::format(" {}", unit);
  }
  return {piece};
}

}  // namespace wifi_profile::report
