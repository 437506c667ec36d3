// The order of names in a person's locale, by ICU.
#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include "platform/NameCollator.h"
#include "runtime/IcuLetterKeys.h"

struct UCollator;  // of ICU

namespace wifi_profile {

// Letter case is ignored, accents count. Bytes that are not valid UTF-8 stand for U+FFFD.
class IcuNameCollator final : public NameCollator {
 public:
  // `locale`: a locale's name as the environment has it, such as "sv_SE.UTF-8". "C", "POSIX" and
  // locales without rules of their own have the rules that all locales share. Without any rules, as
  // when ICU's data is missing, keys are the names.
  explicit IcuNameCollator(std::string_view locale);

  void appendSortKey(std::string_view name, std::string& key) const override;

 private:
  struct Closer {
    void operator()(UCollator* collator) const;
  };

  // Made at the first key, which takes some milliseconds. Null: not in the locale's order.
  const IcuLetterKeys* letterKeys() const;

  const std::unique_ptr<UCollator, Closer> collator_;  // null: there are no rules
  mutable std::once_flag letterKeysMade_;
  mutable std::optional<IcuLetterKeys> letterKeys_;
};

}  // namespace wifi_profile
