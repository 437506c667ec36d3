#include "runtime/BuiltInStringTable.h"

#include <algorithm>
#include <cassert>

#include "runtime/StringFiles.h"

namespace wifi_profile::runtime {
namespace {

// Cuts `text` at the first of the `ends`: returns the part before it and leaves the part after it.
std::string_view takeUntil(std::string_view& text, std::string_view ends) {
  const std::string_view front = text.substr(0, text.find_first_of(ends));
  text.remove_prefix(std::min(front.size() + 1, text.size()));
  return front;
}

std::map<std::string_view, std::string_view> textsOf(std::string_view file) {
  constexpr std::string_view kEquals = " = ";
  std::map<std::string_view, std::string_view> texts;
  while (!file.empty()) {
    const std::string_view line = takeUntil(file, "\n");
    const std::size_t equals = line.find(kEquals);
    if (line.starts_with('#') || equals == std::string_view::npos) continue;
    texts.emplace(line.substr(0, equals), line.substr(equals + kEquals.size()));
  }
  return texts;
}

// `parts`: the text after "zh" in a locale name, such as "Hant_HK". A script overrides a region.
bool asksForTraditionalChinese(std::string_view parts) {
  bool region = false;
  while (!parts.empty()) {
    const std::string_view part = takeUntil(parts, "_-");
    if (part == "Hant" || part == "Hans") return part == "Hant";
    region = region || part == "TW" || part == "HK" || part == "MO";
  }
  return region;
}

}  // namespace

BuiltInStringTable::BuiltInStringTable(std::string_view language)
    : saysKeys_(language == kKeysLanguage) {
  if (saysKeys_) return;
  const auto& files = stringFiles();
  const auto file = std::find_if(files.begin(), files.end(), [&](const StringFile& candidate) {
    return candidate.language == language;
  });
  assert(file != files.end());
  texts_ = textsOf(file->content);
}

std::string BuiltInStringTable::textForKey(std::string_view key, std::string_view fallback) const {
  if (saysKeys_) return std::string(key);
  const auto found = texts_.find(key);
  return std::string(found == texts_.end() ? fallback : found->second);
}

const std::vector<std::string_view>& BuiltInStringTable::languages() {
  static const std::vector<std::string_view> known = [] {
    std::vector<std::string_view> codes;
    for (const StringFile& file : stringFiles()) codes.push_back(file.language);
    codes.push_back(kKeysLanguage);
    return codes;
  }();
  return known;
}

std::optional<std::string_view> BuiltInStringTable::languageOfLocale(std::string_view locale) {
  std::string_view parts = locale.substr(0, locale.find_first_of(".@"));
  const std::string_view asked = takeUntil(parts, "_-");
  const auto known = std::find(languages().begin(), languages().end(), asked);
  if (known == languages().end() || asked == kKeysLanguage) return std::nullopt;
  if (asked == "zh" && asksForTraditionalChinese(parts)) return std::nullopt;
  return *known;
}

}  // namespace wifi_profile::runtime
