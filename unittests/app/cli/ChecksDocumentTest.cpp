// docs/CHECKS.md lists every test and every value from the same tables as the program. After a
// change of a table, write it anew: WIFI_PROFILE_WRITE_GOLDEN=1 wifi_profile_tests
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

Every test asks the device's diagnostics service one question and stores the answer under its first key, as
true or false (`foundScanResults`: as 1 or 0); some store values besides. `wifi-profile explain KEY` says more of each key, with advice.
D: a test of the device, C: of the current network, S: of the selected network.

| Test | Name | In | Question | Yes is | No is | Keys |
|---|---|---|---|---|---|---|
)";

const char* wordFor(Mark mark) {
  return mark == Mark::good      ? "good"
         : mark == Mark::look    ? "worth a look"
         : mark == Mark::problem ? "a problem"
                                 : "a fact";
}

constexpr const char* kMachineIntroduction = R"(
## How an answer is made

`src/analysis/checks/` makes the answers from facts of a device and of the air, by the rules below. Without a name a test asks
about the joined access point; with the name of another network about the strongest access point of that name in the
last scan, of which nothing is known that only a member of a network can find out. Names in backticks are settings,
with the values that they have at first.

What is not known is an error of the test, never a good answer: its code says what kind of thing is missing, and
its text what would help.

Where the Wi-Fi interface is a member of a bond, a team or a bridge, that one has its addresses, routes, name servers
and profile, and what is asked through the link goes through it. What is reached is not known while an active-backup
bond sends through another member, or while a team, a bridge or a bond of another mode has another member that is running.

What a run did not find out before its link changed is not known, for the reason linkChanged: after a loss, or when another
network is joined, whatever is asked of the link; after a roam within the network, or when the access point changes its
channel, what its radio gives: signal, noise and how busy its channel is.

| Test | Name | Measures | From | Threshold | Why | Not known when |
|---|---|---|---|---|---|---|
)";

void writeChecks(std::ostream& out) {
  out << kMachineIntroduction;
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
  out << "\nNumbers of security in a remembered network:";
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
  out << "\n`NoScanResults` belongs to no run of tests: the list of networks asks it.\n"
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
