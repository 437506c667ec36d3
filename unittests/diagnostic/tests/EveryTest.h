// The ground for checks that every test of the catalogue must pass, in every form in which it can
// be asked for.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "diagnostic/tests/ExpectedTests.h"
#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {

// A test as one of the controller's operations runs it.
struct Form {
  std::string name;
  MutableDictionaryRef findings;  // where it is to write
  std::function<void()> run;
};

class EveryTest : public DiagnosticFixture, public ::testing::WithParamInterface<ExpectedTest> {
 protected:
  static const ExpectedTest& expected() { return GetParam(); }

  // The configuration that every form is to pass on.
  const DictionaryRef testConfiguration = makeDictionary({{"some", makeText("configuration")}});

  // Runs the test once in every form, each time with a new controller whose findings begin with
  // `before`, and calls `check` with the form and the findings afterwards.
  void inEveryForm(const FakeAnswer& answer,
                   const std::function<void(const MutableDictionaryRef&)>& check,
                   const Dictionary::Entries& before = {});

  // An answer with all the information of the test, of the right kinds, that passes its gate.
  FakeAnswer fullAnswer(bool verdict = true) const;
  static DictionaryRef fullInformation();
  static bool didPassThatOpensTheGate() { return expected().gate != Gate::onlyWhenNotPassed; }

  // Sorted; with or without the keys of what is copied.
  static std::vector<std::string> verdictKey() { return {expected().resultKey}; }
  static std::vector<std::string> allKeys();

  static std::string line(const std::string& text) { return "[ERROR] - Wi-Fi Profile: " + text; }
  static std::string notFoundLine(const std::string& name) { return line(name + " not found."); }

  // Of every copy of the test that is not passed over in silence, in order.
  static std::vector<std::string> notFoundLines();

  // Checks that `findings` hold the verdict in its form.
  static void expectVerdict(const DictionaryRef& findings, bool verdict);

  // Checks that `findings` hold what `value`, found in the information, is to become.
  void expectCopied(const DictionaryRef& findings, const ExpectedCopy& copy,
                    const ObjectRef& value) const;

 private:
  std::vector<Form> formsOfNewController(const Dictionary::Entries& before);
};

}  // namespace wifi_profile
