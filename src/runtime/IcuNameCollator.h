// Orders names by the rules of the user's locale, with ICU.
#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include "diagnostic/platform/NameCollator.h"
#include "runtime/IcuLetterKeys.h"

struct UCollator;  // of ICU

namespace wifi_profile::runtime {

// Ignores letter case, respects accents. Bytes that are not valid UTF-8 count as U+FFFD.
class IcuNameCollator final : public NameCollator {
 public:
  // `locale`: a locale name as in the environment, such as "sv_SE.UTF-8". "C", "POSIX" and locales
  // without rules of their own use the rules that all locales share. If there are no rules, for
  // example because ICU's data is missing, the keys are the names.
  explicit IcuNameCollator(std::string_view locale);

  void appendSortKey(std::string_view name, std::string& key) const override;

 private:
  struct Closer {
    void operator()(UCollator* collator) const;
  };

  // Created at the first key, which takes some milliseconds. Null if letter keys do not have the
  // locale's order.
  const IcuLetterKeys* letterKeys() const;

  const std::unique_ptr<UCollator, Closer> collator_;  // null: there are no rules
  mutable std::once_flag letterKeysMade_;
  mutable std::optional<IcuLetterKeys> letterKeys_;
};

}  // namespace wifi_profile::runtime
