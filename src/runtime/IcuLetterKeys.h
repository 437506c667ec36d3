// Sort keys put together letter by letter, which is some ten times faster than by ICU.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

struct UCollator;  // of ICU

namespace wifi_profile {

// Keys of names in the order of a collator that tells letters and accents apart, but no case. Most
// names consist of Latin letters and signs, each of which adds the same weights wherever it stands:
// these weights are asked of ICU once. All keys have one form: the name's first weights, a byte 1,
// and the second weights. Any thread.
class IcuLetterKeys {
 public:
  // The collator must outlive this.
  explicit IcuLetterKeys(const UCollator& collator);

  // Whether these keys have the collator's order. NO for a language whose order is more than that
  // of its letters: that moves whole scripts, for one.
  bool areInOrder() const { return inOrder_; }

  // Appends the key of a name of known letters, in UTF-8, and says YES. NO, and nothing is
  // appended, for other names and long ones.
  bool append(std::string_view name, std::string& key) const;

  // Appends the key of any name, in UTF-16.
  void append(const char16_t* units, std::int32_t length, std::string& key) const;

 private:
  static constexpr std::size_t kLetters = 0x180;  // Latin without its rarer letters
  static constexpr std::size_t kMostWeights = 8;  // bytes of either kind for one letter

  struct Letter {
    std::array<char, kMostWeights> first{};
    std::array<char, kMostWeights> second{};
    std::uint8_t firstCount = 0;
    std::uint8_t secondCount = 0;
  };
  static constexpr std::uint8_t kUnknown = UINT8_MAX;  // as a count

  Letter letter(char16_t unit) const;
  void forgetLettersOfContractions();

  const UCollator& collator_;
  const bool inOrder_;
  std::array<Letter, kLetters> letters_;
};

}  // namespace wifi_profile
