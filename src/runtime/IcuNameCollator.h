// Orders names by the rules of the user's locale, with ICU.
#pragma once

#include <memory>

#include "diagnostic/platform/NameCollator.h"

struct UCollator;  // of ICU

namespace wifi_profile::runtime {

// Ignores letter case, respects accents. Bytes that are not valid UTF-8 count as U+FFFD.
class IcuNameCollator final : public NameCollator {
 public:
  // `locale`: a locale name as in the environment, such as "sv_SE.UTF-8". "C", "POSIX" and locales
  // without rules of their own use the rules that all locales share. If there are no rules, for
  // example because ICU's data is missing, the keys are the names.
  explicit IcuNameCollator(std::string_view locale);

  std::string sortKey(std::string_view name) const override;

 private:
  struct Closer {
    void operator()(UCollator* collator) const;
  };

  const std::unique_ptr<UCollator, Closer> collator_;  // null: there are no rules
};

}  // namespace wifi_profile::runtime
