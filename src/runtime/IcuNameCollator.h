// The order of names in a person's language, by ICU.
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
  // `language`: an ISO 639-1 code such as "de". A language without rules of its own has the rules
  // that all languages share. Without any rules, as when ICU's data is missing, keys are the names.
  explicit IcuNameCollator(std::string_view language);

  void appendSortKey(std::string_view name, std::string& key) const override;

 private:
  struct Closer {
    void operator()(UCollator* collator) const;
  };

  // Made at the first key, which takes some milliseconds. Null: not in the language's order.
  const IcuLetterKeys* letterKeys() const;

  const std::unique_ptr<UCollator, Closer> collator_;  // null: there are no rules
  mutable std::once_flag letterKeysMade_;
  mutable std::optional<IcuLetterKeys> letterKeys_;
};

}  // namespace wifi_profile
