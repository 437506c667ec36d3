#include "runtime/JsonFields.h"

#include <array>
#include <charconv>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Number.h"

namespace wifi_profile::runtime {
namespace {

// Longest pieces of untrusted text in a message, in bytes.
constexpr std::size_t kLongestQuote = 40;
constexpr std::size_t kLongestPiece = 300;

template <class T>
std::string numberText(T value) {
  std::array<char, 32> text{};
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr};
}

std::string describe(const Number& number) {
  return std::visit(
      [](auto value) -> std::string {
        if constexpr (std::is_same_v<decltype(value), bool>) {
          return value ? "true" : "false";
        } else {
          std::string text = numberText(value);
          const bool looksWhole = text.find_first_of(".en") == std::string::npos;  // n: inf, nan
          if (std::is_same_v<decltype(value), double> && looksWhole) text += ".0";
          return "the number " + text;
        }
      },
      number.value());
}

std::string escaped(std::string_view key) {
  std::string text;
  for (const char c : key) text += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
  return text;
}

}  // namespace

Error unexpected(std::string_view subject, std::string_view found, std::string_view expected) {
  return {Reason::failed,
          "found " + shortened(found, kLongestPiece) + ", expected " + std::string(expected),
          {},
          shortened(subject, kLongestPiece)};
}

Status readDocument(const ObjectRef& document, std::string_view name,
                    const std::function<void(const ValueReader&)>& read) {
  Status error;
  read(ValueReader(document, "", error));
  if (error) return {};
  Error named = error.error();
  named.subject = (name.empty() ? "" : std::string(name) + ": ") +
                  (named.subject.empty() ? "at the top" : "at " + named.subject);
  return named;
}

std::string describe(const ObjectRef& value) {
  if (const auto text = as<Text>(value))
    return "the text \"" + shortened(text->string(), kLongestQuote) + "\"";
  if (const auto number = as<Number>(value)) return describe(*number);
  if (as<Array>(value)) return "a list";
  if (as<Dictionary>(value)) return "an object";
  return "null";
}

bool ValueReader::boolean() const {
  const auto number = as<Number>(value_);
  if (number && number->isBoolean()) return std::get<bool>(number->value());
  fail("true or false");
  return false;
}

std::int64_t ValueReader::integer(std::int64_t least, std::int64_t most) const {
  const auto number = as<Number>(value_);
  const auto* integer = number ? std::get_if<std::int64_t>(&number->value()) : nullptr;
  if (integer && *integer >= least && *integer <= most) return *integer;
  fail("an integer from " + numberText(least) + " to " + numberText(most));
  return 0;
}

double ValueReader::number(double least, double most) const {
  const auto number = as<Number>(value_);
  if (number && !number->isBoolean() && number->toDouble() >= least && number->toDouble() <= most) {
    return number->toDouble();
  }
  fail("a number from " + numberText(static_cast<std::int64_t>(least)) + " to " +
       numberText(static_cast<std::int64_t>(most)));
  return 0;
}

std::string ValueReader::text() const {
  if (const auto text = as<Text>(value_)) return text->string();
  fail("a text");
  return {};
}

TextRef ValueReader::textOrNull() const {
  auto text = as<Text>(value_);
  if (!text && !isNullPlaceholder(value_)) fail("a text or null");
  return text;
}

std::chrono::nanoseconds ValueReader::seconds(double most) const {
  constexpr double kNanosecondsPerSecond = 1e9;
  return std::chrono::nanoseconds(
      static_cast<std::int64_t>(number(0, most) * kNanosecondsPerSecond));
}

Date ValueReader::date() const {
  const auto text = as<Text>(value_);
  const auto date = text ? dateFromIso8601(text->string()) : std::nullopt;
  if (!date) fail("an ISO 8601 date such as \"2026-03-01T18:30:00Z\"");
  return date.value_or(Date{});
}

std::optional<Date> ValueReader::dateOrNull() const {
  const TextRef text = textOrNull();
  const auto date = text ? dateFromIso8601(text->string()) : std::nullopt;
  if (text && !date) fail("an ISO 8601 date such as \"2026-03-01T18:30:00Z\", or null");
  return date;
}

void ValueReader::mustBeTrue() const {
  const auto number = as<Number>(value_);
  if (!number || !(*number == *Number::withBool(true))) fail("true");
}

void ValueReader::list(const std::function<void(const ValueReader&)>& read) const {
  const auto array = as<Array>(value_);
  if (!array) {
    fail("a list");
    return;
  }
  for (std::size_t i = 0; i < array->elements().size(); ++i) {
    read(element(i, array->elements()[i]));
  }
}

void ValueReader::object(const std::function<void(FieldsReader&)>& read) const {
  const auto dictionary = as<Dictionary>(value_);
  if (!dictionary) {
    fail("an object");
    return;
  }
  FieldsReader fields(*this, dictionary->entries());
  read(fields);
  fields.refuseOthers();
}

ValueReader ValueReader::element(std::size_t index, ObjectRef value) const {
  return {std::move(value), pointer_ + "/" + std::to_string(index), *error_};
}

ValueReader ValueReader::member(std::string_view key, ObjectRef value) const {
  return {std::move(value), pointer_ + "/" + escaped(key), *error_};
}

void ValueReader::fail(std::string_view expected) const { fail(describe(value_), expected); }

void ValueReader::fail(std::string_view found, std::string_view expected) const {
  if (!*error_) return;
  *error_ = unexpected(pointer_, found, expected);
}

bool FieldsReader::take(std::string_view key, const std::function<void(const ValueReader&)>& read) {
  known_.emplace(key);
  const auto field = fields_.find(key);
  if (field == fields_.end()) return false;
  read(object_.member(key, field->second));
  return true;
}

void FieldsReader::require(std::string_view key,
                           const std::function<void(const ValueReader&)>& read) {
  if (!take(key, read)) {
    object_.fail("an object without \"" + std::string(key) + "\"",
                 "an object with \"" + std::string(key) + "\"");
  }
}

void FieldsReader::refuseOthers() const {
  for (const auto& [key, value] : fields_) {
    if (known_.contains(key)) continue;
    std::string expected;
    for (const std::string& known : known_) {
      expected += (expected.empty() ? "one of \"" : ", \"") + known + "\"";
    }
    object_.member(key, value).fail("an unknown field", expected);
  }
}

void takeText(FieldsReader& fields, std::string_view key, std::string& target) {
  fields.take(key, [&](const ValueReader& field) { target = field.text(); });
}

void takeText(FieldsReader& fields, std::string_view key, std::optional<std::string>& target) {
  fields.take(key, [&](const ValueReader& field) { target = field.text(); });
}

void takeFlag(FieldsReader& fields, std::string_view key, bool& target) {
  fields.take(key, [&](const ValueReader& field) { target = field.boolean(); });
}

void takeFlag(FieldsReader& fields, std::string_view key, std::optional<bool>& target) {
  fields.take(key, [&](const ValueReader& field) { target = field.boolean(); });
}

void takeTexts(FieldsReader& fields, std::string_view key, std::vector<std::string>& target) {
  takeTexts(fields, key, target, [](const ValueReader& text) { return text.text(); });
}

void takeTexts(FieldsReader& fields, std::string_view key, std::vector<std::string>& target,
               std::string (*read)(const ValueReader&)) {
  fields.take(key, [&](const ValueReader& field) {
    target.clear();
    field.list([&](const ValueReader& text) { target.push_back(read(text)); });
  });
}

void takeInteger(FieldsReader& fields, std::string_view key, int least, int most, int& target) {
  fields.take(key, [&](const ValueReader& field) {
    target = static_cast<int>(field.integer(least, most));
  });
}

void takeInteger(FieldsReader& fields, std::string_view key, int least, int most,
                 std::optional<int>& target) {
  fields.take(key, [&](const ValueReader& field) {
    target = static_cast<int>(field.integer(least, most));
  });
}

}  // namespace wifi_profile::runtime
