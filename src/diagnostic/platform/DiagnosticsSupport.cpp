#include "diagnostic/platform/DiagnosticsSupport.h"

namespace wifi_profile {
namespace {

ObjectRef valueOf(const DictionaryRef& dictionary, std::string_view key) {
  return dictionary ? dictionary->objectForKey(key) : nullptr;
}

}  // namespace

NumberRef hs_numberFromRequiredKey(const DictionaryRef& dictionary, std::string_view key,
                                   const NumberRef& lowerBound, const NumberRef& upperBound,
                                   bool& failed) {
  auto number = as<Number>(valueOf(dictionary, key));
  if (number && !number->isBoolean() && number->toDouble() >= lowerBound->toDouble() &&
      number->toDouble() <= upperBound->toDouble()) {
    return number;
  }
  failed = true;
  return nullptr;
}

bool hs_boolFromRequiredKey(const DictionaryRef& dictionary, std::string_view key, bool& failed) {
  const auto number = as<Number>(valueOf(dictionary, key));
  if (number && number->isBoolean()) return std::get<bool>(number->value());
  failed = true;
  return false;
}

TextRef hs_stringFromKey(const DictionaryRef& dictionary, std::string_view key,
                         std::size_t maxLength, const TextRef& defaultValue, bool& failed) {
  const ObjectRef value = valueOf(dictionary, key);
  if (!value) return defaultValue;
  TextRef text = as<Text>(value);
  if (text && characterCount(text->string()) <= maxLength) return text;
  failed = true;
  return defaultValue;
}

}  // namespace wifi_profile
