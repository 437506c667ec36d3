// The texts of the screens, in the languages that are built in.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/StringTable.h"

namespace wifi_profile {

// "keys" is a language, too: each text is its own key.
inline constexpr std::string_view kKeysLanguage = "keys";

class BuiltInStringTable final : public StringTable {
 public:
  // `language` must be one of `languages()`.
  explicit BuiltInStringTable(std::string_view language);

  std::string textForKey(std::string_view key, std::string_view fallback) const override;

  // Codes of ISO 639-1, and "keys".
  static const std::vector<std::string_view>& languages();

  // The first built-in language that a locale name such as "de_AT.UTF-8" asks for, or nothing.
  static std::optional<std::string_view> languageOfLocale(std::string_view locale);

 private:
  std::string_view language_;
};

}  // namespace wifi_profile
