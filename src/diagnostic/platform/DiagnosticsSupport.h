// The diagnostics support library: date formatting for the record, test automation, parameter
// readers.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "diagnostic/platform/Date.h"
#include "diagnostic/platform/Dictionary.h"
#include "diagnostic/platform/Interface.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Platform.h"
#include "diagnostic/platform/Text.h"

namespace wifi_profile {

// Formats dates. Any thread.
class HsDateFormatter : public Interface {
 public:
  static HsDateFormatter* sharedFormatter() {
    return InstalledPlatform::get(&Platform::dates, "the date formatter");
  }

  // Returns the formatter of a style. Type 0 is the ISO 8601 style of the library.
  virtual const HsDateFormatter& formatterWithType(int type) = 0;

  // Returns nil if `date` is empty or cannot be formatted in this style.
  virtual TextRef stringFromDate(const std::optional<Date>& date) const = 0;
};

// The automation harness, which may observe a device under test. Any thread.
class HsTestAutomation : public Interface {
 public:
  static HsTestAutomation* sharedInstance() {
    return InstalledPlatform::get(&Platform::automation, "the test automation");
  }
  static void postConfiguration(const DictionaryRef& configuration) {
    sharedInstance()->receiveConfiguration(configuration);
  }

  virtual bool testAutomationEnabled() const = 0;

 protected:
  virtual void receiveConfiguration(const DictionaryRef& configuration) = 0;
};

// Readers of a parameter dictionary. Each sets `failed` to true if the value is not acceptable and
// leaves it unchanged otherwise, so that one flag serves several reads. A nil dictionary has no
// keys.

// Returns the number. Returns nil and fails if the key is missing, the value is not a number, or
// the number lies outside the bounds, which are inclusive. A boolean is not accepted as a number.
NumberRef hs_numberFromRequiredKey(const DictionaryRef& dictionary, std::string_view key,
                                   const NumberRef& lowerBound, const NumberRef& upperBound,
                                   bool& failed);

// Returns the boolean. Returns false and fails if the key is missing or the value is not a boolean.
// The numbers 0 and 1 are not accepted as booleans.
bool hs_boolFromRequiredKey(const DictionaryRef& dictionary, std::string_view key, bool& failed);

// Returns the text, or `defaultValue` if the key is missing, which is not a failure. Returns
// `defaultValue` and fails if the value is not a text or has more than `maxLength` characters
// (Unicode code points).
TextRef hs_stringFromKey(const DictionaryRef& dictionary, std::string_view key,
                         std::size_t maxLength, const TextRef& defaultValue, bool& failed);

}  // namespace wifi_profile
