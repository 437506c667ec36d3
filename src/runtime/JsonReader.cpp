#include "runtime/JsonReader.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <vector>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Text.h"
#include "runtime/JsonFields.h"

namespace wifi_profile::runtime {
namespace {

// An array or object whose end has not been read.
struct Open {
  bool isArray;
  std::vector<ObjectRef> elements;
  Dictionary::Entries entries;
  std::string key;
};

// An iterator over the text that counts the bytes that the parser has read.
class Position {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  Position(const char* at, std::size_t* read) : at_(at), read_(read) {}
  reference operator*() const { return *at_; }
  Position& operator++() {
    ++at_;
    ++*read_;
    return *this;
  }
  bool operator==(const Position& other) const { return at_ == other.at_; }
  bool operator!=(const Position& other) const { return at_ != other.at_; }

 private:
  const char* at_;
  std::size_t* read_;
};

// Builds the value from the parser's events. An event returns false to stop at an error.
class Builder : public nlohmann::json_sax<nlohmann::json> {
 public:
  ObjectRef value;
  std::string found;
  std::string expected;
  std::optional<std::size_t> syntaxErrorAt;  // bytes read

  bool null() override { return add(nullPlaceholder()); }
  bool boolean(bool read) override { return add(Number::withBool(read)); }
  bool number_integer(number_integer_t read) override { return add(Number::withInteger(read)); }
  bool number_unsigned(number_unsigned_t read) override {
    if (read <= static_cast<std::uint64_t>(INT64_MAX)) {
      return add(Number::withInteger(static_cast<std::int64_t>(read)));
    }
    return add(Number::withUnsigned(read));
  }
  bool number_float(number_float_t read, const string_t& written) override {
    // The parser returns a double for an integer that is too large.
    if (written.find_first_of(".eE") == string_t::npos) {
      return stop("the number " + written, "an integer of at most 64 bits");
    }
    return add(Number::withDouble(read));
  }
  bool string(string_t& read) override { return add(makeText(read)); }
  bool binary(binary_t& /*read*/) override { return false; }
  bool start_object(std::size_t /*count*/) override { return open(false); }
  bool start_array(std::size_t /*count*/) override { return open(true); }
  bool key(string_t& read) override {
    if (open_.back().entries.contains(read)) {
      return stop("the key \"" + read + "\" a second time", "each key once");
    }
    open_.back().key = read;
    return true;
  }
  bool end_object() override {
    Open closed = close();
    return add(makeDictionary(std::move(closed.entries)));
  }
  bool end_array() override {
    Open closed = close();
    return add(std::make_shared<const Array>(std::move(closed.elements)));
  }
  bool parse_error(std::size_t position, const std::string& lastToken,
                   const nlohmann::json::exception& error) override {
    syntaxErrorAt = position;
    constexpr int kOutOfRange = 406;
    if (error.id == kOutOfRange) {
      return stop("the number " + lastToken, "a number that a double can hold");
    }
    return stop("", expectedIn(error.what()));
  }

 private:
  // The parser's message contains " - WHY; last read: 'TEXT'" for a bad token, otherwise ";
  // expected THIS". TEXT may contain anything.
  static std::string expectedIn(std::string_view message) {
    constexpr std::string_view kReason = " - ";
    constexpr std::string_view kExpected = "; expected ";
    const auto lastRead = message.find("; last read");
    const auto reason = message.find(kReason);
    const auto expected = message.find(kExpected);
    if (lastRead != std::string_view::npos && reason < lastRead) {
      const auto begin = reason + kReason.size();
      return "JSON (" + std::string(message.substr(begin, lastRead - begin)) + ")";
    }
    if (expected == std::string_view::npos) return "JSON";
    return std::string(message.substr(expected + kExpected.size()));
  }
  bool stop(std::string what, std::string insteadOf) {
    found = std::move(what);
    expected = std::move(insteadOf);
    return false;
  }
  bool open(bool isArray) {
    if (open_.size() >= kDeepestJson) {
      return stop("deeper nesting", "at most " + std::to_string(kDeepestJson) + " levels");
    }
    open_.push_back({isArray, {}, {}, {}});
    return true;
  }
  Open close() {
    Open closed = std::move(open_.back());
    open_.pop_back();
    return closed;
  }
  bool add(ObjectRef object) {
    if (open_.empty()) {
      value = std::move(object);
    } else if (open_.back().isArray) {
      open_.back().elements.push_back(std::move(object));
    } else {
      open_.back().entries.insert_or_assign(std::move(open_.back().key), std::move(object));
    }
    return true;
  }

  std::vector<Open> open_;
};

std::string whatStandsAt(std::string_view rest) {
  if (rest.empty()) return "the end of the text";
  return std::string(1, '"').append(rest.substr(0, firstCodePoint(rest).length)).append(1, '"');
}

// Returns the error at byte `at`, counted from 0, or at the end of the text. If `found` is empty,
// the text at that place replaces it.
Error errorAt(std::string_view name, std::string_view text, std::size_t at, std::string_view found,
              std::string_view expected) {
  const std::string_view before = text.substr(0, at);
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  const auto lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
  std::string subject(name);
  if (!name.empty()) subject += ':';
  subject += std::to_string(line) + ':' + std::to_string(1 + before.size() - lineStart);
  return unexpected(subject,
                    found.empty() ? whatStandsAt(text.substr(before.size())) : std::string(found),
                    expected);
}

}  // namespace

Result<ObjectRef> readJson(std::string_view text, std::string_view name) {
  // The parser would treat a NUL as the end of the text and ignore the rest.
  if (const auto nul = text.find('\0'); nul != std::string_view::npos) {
    return errorAt(name, text, nul, "a NUL byte", "JSON");
  }
  std::size_t read = 0;
  Builder builder;
  const bool whole = nlohmann::json::sax_parse(
      Position(text.data(), &read), Position(text.data() + text.size(), &read), &builder);
  if (whole) return builder.value;
  // The last byte read is the faulty one; the end of the text counts as one more byte.
  const std::size_t bytesRead = builder.syntaxErrorAt.value_or(read);
  return errorAt(name, text, std::min(bytesRead > 0 ? bytesRead - 1 : 0, text.size()),
                 builder.found, builder.expected);
}

}  // namespace wifi_profile::runtime
