#include "app/cli/TestsCommand.h"

#include <algorithm>
#include <fmt/format.h>
#include <string_view>
#include <vector>

#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/TestOutcome.h"
#include "diagnostic/tests/Batches.h"
#include "diagnostic/tests/Catalogue.h"
#include "report/Wrap.h"
#include "runtime/JsonWriter.h"

namespace wifi_profile::cli {
namespace {

// One use of a test: in a batch, or by the list of networks.
struct Use {
  std::string_view batch;  // empty: used by the list of networks
  std::string_view configuration;
};

std::vector<Use> usesOf(DiagnosticsTestID id) {
  std::vector<Use> uses;
  for (const Batch& batch : kBatches) {
    if (batch.holds(id)) uses.push_back({keyOf(batch.section), batch.configuration});
  }
  if (uses.empty()) uses.push_back({"", "freshScanConfiguration"});
  return uses;
}

// Returns the result key, then the output keys.
std::vector<std::string> keysOf(const CatalogueTest& test) {
  std::vector<std::string> keys{std::string(test.resultKey)};
  for (const InformationCopy& copy : test.information()) {
    if (!copy.outputKey.empty()) keys.emplace_back(copy.outputKey);
  }
  return keys;
}

template <class Texts>
ObjectRef arrayOf(const Texts& texts) {
  std::vector<ObjectRef> elements;
  elements.reserve(texts.size());
  for (const auto& text : texts) elements.push_back(makeText(text));
  return std::make_shared<const Array>(std::move(elements));
}

ObjectRef valueOf(const CatalogueTest& test) {
  std::vector<std::string_view> batches;
  std::vector<std::string_view> configurations;
  for (const Use& use : usesOf(test.id)) {
    if (!use.batch.empty()) batches.push_back(use.batch);
    configurations.push_back(use.configuration);
  }
  return makeDictionary({{"id", Number::withInteger(static_cast<std::int32_t>(test.id))},
                         {"name", makeText(test.member())},
                         {"label", makeText(test.label)},
                         {"batches", arrayOf(batches)},
                         {"configuration", arrayOf(configurations)},
                         {"keys", arrayOf(keysOf(test))}});
}

constexpr std::string_view kRow = "{:>2}  {:<28}  {:<32}  {:<15}  {}\n";

std::string rowsOf(const CatalogueTest& test) {
  // The keys fill the columns of name and label. The second use, if there is one, is on the first
  // line of the keys.
  constexpr std::size_t kKeysIndent = 6;
  constexpr std::size_t kKeysEnd = 66;
  const std::vector<Use> uses = usesOf(test.id);
  const auto batchOf = [](const Use& use) {
    return use.batch.empty() ? std::string_view("(network list)") : use.batch;
  };
  std::string rows = fmt::format(kRow, static_cast<std::int32_t>(test.id), test.member(),
                                 test.label, batchOf(uses[0]), uses[0].configuration);
  const std::string keys = std::string(kKeysIndent, ' ') +
                           report::joinedWithin(kKeysEnd, kKeysIndent, keysOf(test), ", ");
  const std::size_t firstEnd = std::min(keys.find('\n'), keys.size());
  if (uses.size() == 1) return rows + keys + '\n';
  return rows + fmt::format("{:<66}  {:<15}  {}{}\n", keys.substr(0, firstEnd), batchOf(uses[1]),
                            uses[1].configuration, keys.substr(firstEnd));
}

}  // namespace

std::string testsText() {
  std::string table = fmt::format(kRow, "ID", "NAME", "LABEL", "BATCH", "CONFIGURATION");
  for (const CatalogueTest& test : kCatalogue) table += rowsOf(test);
  return table;
}

std::string testsJson() {
  std::vector<ObjectRef> tests;
  tests.reserve(kCatalogue.size());
  for (const CatalogueTest& test : kCatalogue) tests.push_back(valueOf(test));
  return runtime::jsonText(std::make_shared<const Array>(std::move(tests))) + '\n';
}

}  // namespace wifi_profile::cli
