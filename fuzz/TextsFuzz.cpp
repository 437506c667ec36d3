// Any bytes as texts from the air: made safe, put into JSON, shown in columns, and sorted.

#include <array>
#include <clocale>
#include <memory>
#include <unicode/ucol.h>
#include <vector>

#include "Require.h"
#include "app/terminal/TextWidth.h"
#include "diagnostic/platform/Text.h"
#include "runtime/IcuNameCollator.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "runtime/SafeText.h"

using namespace wifi_profile;

namespace {

bool isSafe(std::string_view text) {
  for (; !text.empty(); text.remove_prefix(firstCodePoint(text).length)) {
    const CodePoint point = firstCodePoint(text);
    if (!point.valid || runtime::isUnsafeToShow(point.value)) return false;
  }
  return true;
}

void show(const std::string& text) {
  const std::string safe = runtime::safeText(text);
  require(isSafe(safe), "a safe text is one");
  require(runtime::safeText(safe) == safe, "a safe text stays as it is");
  require(!isSafe(text) || safe == text, "and so does one that was safe");
  const auto read = runtime::readJson(runtime::jsonString(text));
  require(read && as<Text>(*read)->string() == runtime::validUtf8(text),
          "JSON gives the text back");
  require(isSafe(runtime::jsonString(text)), "JSON is safe");
  require(isValidUtf8(shortened(safe, 20)) && shortened(safe, 20).size() <= 23, "short is short");
  const terminal::Glyphs glyphs = terminal::glyphsOf(text);
  require(isSafe(terminal::textOf(glyphs)), "what is shown is safe");
  require(terminal::widthOf(terminal::fitted(glyphs, 10, U'~')) <= 10, "what is fitted fits");
  for (const terminal::Glyphs& line : terminal::wrapped(glyphs, 10))
    require(terminal::widthOf(line) <= 10, "lines fit");
}

struct Language {
  explicit Language(const char* name) : keys(name) {
    UErrorCode status = U_ZERO_ERROR;
    rules = ucol_open(name, &status);
    ucol_setStrength(rules, UCOL_SECONDARY);
  }
  runtime::IcuNameCollator keys;
  UCollator* rules = nullptr;  // as long as the process
};

int signOf(int number) { return (number > 0) - (number < 0); }

void sort(const std::string& one, const std::string& other) {
  static const std::array<Language, 5> kLanguages{Language("en"), Language("sv"), Language("cs"),
                                                  Language("fr_CA"), Language("ja")};
  for (const Language& language : kLanguages) {
    const std::string oneKey = language.keys.sortKey(one);
    const std::string otherKey = language.keys.sortKey(other);
    UErrorCode status = U_ZERO_ERROR;
    const auto order = ucol_strcollUTF8(language.rules, one.data(), static_cast<int>(one.size()),
                                        other.data(), static_cast<int>(other.size()), &status);
    require(signOf(oneKey.compare(otherKey)) == signOf(order), "keys have the collator's order");
  }
}

}  // namespace

// A line, and another text behind it.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  static const char* const kLocale = std::setlocale(LC_CTYPE, "C.UTF-8");
  require(kLocale != nullptr, "there is a locale of UTF-8");
  const std::string text(reinterpret_cast<const char*>(bytes), size);
  show(text);
  const std::size_t end = std::min(text.find('\n'), text.size());
  sort(text.substr(0, end), text.substr(std::min(end + 1, text.size())));
  return 0;
}
