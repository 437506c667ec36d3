// docs/CHECKS.md lists every test and every value from the tables of the program. After a change of
// a table, write it again: WIFI_PROFILE_WRITE_GOLDEN=1 wifi_profile_tests
// --gtest_filter='ChecksDocument.*'

#include <cctype>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "analysis/checks/Checks.h"
#include "analysis/facts/Reasons.h"
#include "analysis/facts/SecurityKinds.h"
#include "diagnostic/tests/Catalogue.h"

namespace wifi_profile::cli {
namespace {

constexpr const char* kDocument = WIFI_PROFILE_SOURCE_DIR "/docs/CHECKS.md";

constexpr const char* kIntroduction = R"(# What is checked

Every test asks the device's diagnostics service one question. The answer is stored under the first key as true or false
(`foundScanResults`: as 1 or 0); some tests store values, too. `wifi-profile explain KEY` explains each key and gives advice.
In: D is the device, C the current network, S the selected network.

| Test | Name | In | Question | Yes is | No is | Keys |
|---|---|---|---|---|---|---|
)";

const char* wordFor(Mark mark) {
  return mark == Mark::good      ? "good"
         : mark == Mark::look    ? "worth a look"
         : mark == Mark::problem ? "a problem"
                                 : "a fact";
}

constexpr const char* kAnswersIntroduction = R"(
## How an answer is made

`src/analysis/checks/` makes the answers from facts about the device and the air, by the rules below. A test without a
network name is about the joined access point. A test with the name of another network is about the strongest access
point of that name in the last scan; facts that only a member of a network can find out are then not known. Names in
backticks are settings, with their default values.

An answer that is not known is an error of the test, never a good answer. The code of the error is its kind, and the
text says what would help.

If the Wi-Fi interface is a member of a bond, a team or a bridge, addresses, routes, name servers and the profile are
those of the bond, team or bridge, and queries through the link go through it. What can be reached is not known while an
active-backup bond sends through another member, or while a team, a bridge or a bond of another mode has another running
member.

Facts that were not collected before the link changed are not known, with the reason linkChanged. After the link is lost,
or another network is joined, this applies to all facts about the link; after a roam within the network, or a change of
the access point's channel, to the signal, the noise and the load of the channel.

| Test | Name | Measures | From | Threshold | Why | Not known when |
|---|---|---|---|---|---|---|
)";

void writeChecks(std::ostream& out) {
  out << kAnswersIntroduction;
  for (const checks::Check& check : checks::allChecks()) {
    out << "| " << static_cast<int>(check.id) << " | " << nameOf(check.id) << " | "
        << check.measures << " | " << check.from << " | " << check.threshold << " | " << check.why
        << " | " << check.unknownWhen << " |\n";
  }
  out << "\n| Error code | Name | Means |\n|---|---|---|\n";
  for (const auto& [name, text] : facts::kReasons) {
    out << "| " << static_cast<int>(text.reason) << " | " << name << " | " << text.sentence
        << " |\n";
  }
  out << "\nNumbers for the security of a remembered network:";
  using ieee80211::Security;
  for (auto number = 0; number < static_cast<int>(ieee80211::Security::unknown); ++number) {
    out << " " << number << " " << facts::textOf(static_cast<ieee80211::Security>(number)) << ",";
  }
  out << " " << static_cast<int>(ieee80211::Security::unknown) << " not known.\n";
}

std::string document() {
  std::ostringstream out;
  out << kIntroduction;
  for (const CatalogueTest& test : kCatalogue) {
    out << "| " << static_cast<int>(test.id) << " | " << test.member() << " | ";
    for (const Batch& batch : kBatches) {
      if (batch.holds(test.id))
        out << static_cast<char>(std::toupper(keyOf(batch.section).front()));
    }
    out << " | " << test.question << " | " << wordFor(test.yes.mark) << " | "
        << wordFor(test.no.mark) << " | `" << test.resultKey << "`";
    for (const InformationCopy& copy : test.information()) {
      if (!copy.outputKey.empty()) out << ", `" << copy.outputKey << "`";
    }
    out << " |\n";
  }
  out << "\n`NoScanResults` belongs to no batch: the list of networks requests it.\n"
         "\n| Value | Is | Unit | |\n|---|---|---|---|\n";
  for (const InformationCopy* value : outputValues()) {
    out << "| `" << value->outputKey << "` | " << value->name << " | " << value->unit << " | "
        << value->explanation << " |\n";
  }
  writeChecks(out);
  return out.str();
}

TEST(ChecksDocument, SaysWhatTheTablesSay) {
  if (std::getenv("WIFI_PROFILE_WRITE_GOLDEN")) std::ofstream(kDocument) << document();
  std::ostringstream kept;
  kept << std::ifstream(kDocument).rdbuf();
  EXPECT_EQ(kept.str(), document());
}

}  // namespace
}  // namespace wifi_profile::cli
