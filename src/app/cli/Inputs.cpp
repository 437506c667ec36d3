#include "app/cli/Inputs.h"

#include <charconv>
#include <fmt/format.h>

#include "app/cli/Files.h"
#include "diagnostic/platform/DiagnosticsSupport.h"
#include "runtime/JsonFields.h"

namespace wifi_profile::cli {
namespace {

constexpr std::uint64_t kUsualScanCacheAge = 60;  // seconds

constexpr std::string_view kAgeOption = "--max-scan-cache-age";
constexpr std::string_view kNameOption = "--network-name";
constexpr std::string_view kPickOption = "--pick";

// Returns what is expected under a key; empty: the present value is valid.
std::string expectedUnder(const DictionaryRef& parameters, std::string_view key) {
  WiFiProfileInputs alone;
  Dictionary::Entries entries{{"maxScanCacheAge", Number::withUnsigned(0)},
                              {"reprofileWithUI", Number::withBool(false)}};
  const ObjectRef value = parameters->objectForKey(key);
  entries.erase(std::string(key));
  if (value) entries.insert_or_assign(std::string(key), value);
  if (alone.validateAndInitializeParameters(makeDictionary(std::move(entries)))) return {};
  if (key == "maxScanCacheAge") return "a number from 0 to 600 (seconds)";
  return key == "reprofileWithUI" ? "true or false" : "a text of at most 32 characters";
}

std::string foundUnder(const DictionaryRef& parameters, std::string_view key) {
  const ObjectRef value = parameters->objectForKey(key);
  if (!value) return "nothing";
  const auto text = as<Text>(value);
  return text && key == "networkName"
             ? fmt::format("a text of {} characters", characterCount(text->string()))
             : runtime::describe(value);
}

std::string placeOf(const RunOptions& options, std::string_view key) {
  if (options.parametersFile) return fmt::format("{}: at /{}", *options.parametersFile, key);
  return std::string(key == "maxScanCacheAge" ? kAgeOption
                     : key == "networkName"   ? kNameOption
                                              : kPickOption);
}

Result<DictionaryRef> parametersFromFile(const std::string& path) {
  const auto document = readJsonFile(path);
  if (!document) return document.error();
  if (auto parameters = as<Dictionary>(*document)) return parameters;
  return runtime::unexpected(path, runtime::describe(*document), "a JSON object");
}

Result<DictionaryRef> parametersFromOptions(const RunOptions& options) {
  Dictionary::Entries entries{{"maxScanCacheAge", Number::withUnsigned(kUsualScanCacheAge)},
                              {"reprofileWithUI", Number::withBool(options.pick)}};
  if (options.maxScanCacheAge) {
    const std::string& text = *options.maxScanCacheAge;
    std::uint64_t age = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), age);
    if (error != std::errc() || end != text.data() + text.size()) {
      return runtime::unexpected(kAgeOption, "\"" + text + "\"",
                                 "a whole number from 0 to 600 (seconds)");
    }
    entries["maxScanCacheAge"] = Number::withUnsigned(age);
  }
  if (options.networkName) {
    if (options.networkName->empty()) {
      return runtime::unexpected(
          kNameOption, "an empty name",
          "the name of a network (without the option only the joined one is tested)");
    }
    entries["networkName"] = makeText(*options.networkName);
  }
  return makeDictionary(std::move(entries));
}

}  // namespace

std::string placeOfPick(const RunOptions& options) { return placeOf(options, "reprofileWithUI"); }

Result<std::shared_ptr<WiFiProfileInputs>> inputsOf(const RunOptions& options) {
  auto parameters = options.parametersFile ? parametersFromFile(*options.parametersFile)
                                           : parametersFromOptions(options);
  if (!parameters) return parameters.error();
  const DictionaryRef& dictionary = *parameters;
  auto inputs = std::make_shared<WiFiProfileInputs>();
  if (!inputs->validateAndInitializeParameters(dictionary)) {
    for (const std::string_view key : {"maxScanCacheAge", "reprofileWithUI", "networkName"}) {
      const std::string expected = expectedUnder(dictionary, key);
      if (expected.empty()) continue;
      return runtime::unexpected(placeOf(options, key), foundUnder(dictionary, key), expected);
    }
  }
  return inputs;
}

}  // namespace wifi_profile::cli
