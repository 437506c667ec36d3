// The diagnostics support library: dates for the record, test automation, readers of parameters.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/Date.h"
#include "platform/Dictionary.h"
#include "platform/Installed.h"
#include "platform/Interface.h"
#include "platform/Number.h"
#include "platform/Text.h"

namespace wifi_profile {

// Turns dates into texts. Any thread.
class HsDateFormatter : public Interface {
 public:
  static std::shared_ptr<HsDateFormatter> sharedFormatter() {
    return Installed<HsDateFormatter>::get();
  }

  // Type 0 is the library's ISO 8601 style.
  virtual std::shared_ptr<const HsDateFormatter> formatterWithType(int type) = 0;

  // nil for no date, and for a date that has no text in this style.
  virtual TextRef stringFromDate(const std::optional<Date>& date) const = 0;
};

// The automation harness, which may watch a device under test. Any thread.
class HsTestAutomation : public Interface {
 public:
  static std::shared_ptr<HsTestAutomation> sharedInstance() {
    return Installed<HsTestAutomation>::get();
  }
  static void postConfiguration(const DictionaryRef& configuration) {
    sharedInstance()->receiveConfiguration(configuration);
  }

  virtual bool testAutomationEnabled() const = 0;

 protected:
  virtual void receiveConfiguration(const DictionaryRef& configuration) = 0;
};

// Readers of a parameter dictionary. Each sets `failed` when the value will not do and leaves it
// alone otherwise, so that one flag can serve several reads. A nil dictionary holds no keys.

// The number, or nil when the key is missing, its value is no number or lies outside the bounds
// (which are inclusive). A boolean is not accepted as a number.
NumberRef hs_numberFromRequiredKey(const DictionaryRef& dictionary, std::string_view key,
                                   const NumberRef& lowerBound, const NumberRef& upperBound,
                                   bool& failed);

// The boolean, or NO when the key is missing or its value is no boolean. The numbers 0 and 1 are
// not accepted as booleans.
bool hs_boolFromRequiredKey(const DictionaryRef& dictionary, std::string_view key, bool& failed);

// The text; `defaultValue` when the key is absent (no failure) or its value is no text or has more
// than `maxLength` characters (Unicode code points).
TextRef hs_stringFromKey(const DictionaryRef& dictionary, std::string_view key,
                         std::size_t maxLength, const TextRef& defaultValue, bool& failed);

}  // namespace wifi_profile
