// The texts of the screens in the built-in languages.
#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "diagnostic/platform/StringTable.h"

namespace wifi_profile::runtime {

// "keys" is also a language: each text is its own key.
inline constexpr std::string_view kKeysLanguage = "keys";

// Any thread may read it.
class BuiltInStringTable final : public StringTable {
 public:
  // `language` must be one of `languages()`.
  explicit BuiltInStringTable(std::string_view language);

  std::string textForKey(std::string_view key, std::string_view fallback) const override;

  // ISO 639-1 codes, and "keys".
  static const std::vector<std::string_view>& languages();

  // Returns the built-in language for a locale name such as "de_AT.UTF-8". Empty if there is none.
  // Chinese is built in with simplified characters only, so the result is empty for "zh_TW" and
  // other locales that write traditional ones.
  static std::optional<std::string_view> languageOfLocale(std::string_view locale);

 private:
  const bool saysKeys_;
  std::map<std::string_view, std::string_view> texts_;  // by key; empty in the language of keys
};

}  // namespace wifi_profile::runtime
