// The texts of the screens, in the languages that are built in.
#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/StringTable.h"

namespace wifi_profile {

// "keys" is a language, too: each text is its own key.
inline constexpr std::string_view kKeysLanguage = "keys";

// May be read on any thread.
class BuiltInStringTable final : public StringTable {
 public:
  // `language` must be one of `languages()`.
  explicit BuiltInStringTable(std::string_view language);

  std::string textForKey(std::string_view key, std::string_view fallback) const override;

  // Codes of ISO 639-1, and "keys".
  static const std::vector<std::string_view>& languages();

  // The built-in language that a locale name such as "de_AT.UTF-8" asks for, or nothing. Chinese
  // is built in in simplified characters only, so "zh_TW" and others that write traditional ones
  // get nothing.
  static std::optional<std::string_view> languageOfLocale(std::string_view locale);

 private:
  const bool saysKeys_;
  std::map<std::string_view, std::string_view> texts_;  // by key; empty in the language of keys
};

}  // namespace wifi_profile
