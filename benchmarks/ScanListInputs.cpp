#include "benchmarks/ScanListInputs.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace wifi_profile {
namespace {

constexpr std::array<std::string_view, 8> kRouters{
    "HomeBox-", "WLAN-", "Router ", "Internet_", "Gateway-", "FibreHub-", "MyWiFi ", "NetStation_"};
constexpr std::array<std::string_view, 6> kRouterEndings{"", "", "", "-5G", "_EXT", "-guest"};
constexpr std::array<std::string_view, 6> kHouseholds{"Familie ", "The ", "Casa ", "Chez ", "", ""};
constexpr std::array<std::string_view, 16> kFamilies{
    "Müller", "Schröder", "Nowak",    "García", "Lefèvre", "Öztürk", "Jensen", "Åkesson",
    "Smith",  "Rossi",    "O'Connor", "Çelik",  "Novák",   "Santos", "Weiß",   "van Dijk"};
constexpr std::array<std::string_view, 6> kHouseholdEndings{"",      " WiFi",  " Netz",
                                                            " Gast", " 5 GHz", " upstairs"};
constexpr std::array<std::string_view, 8> kPlaces{"Café ",     "Cafe ",     "Bar ",    "Hotel ",
                                                  "Pizzeria ", "Bäckerei ", "Bistro ", "Pension "};
constexpr std::array<std::string_view, 10> kPlaceNames{
    "Linde", "Seeblick", "Roma", "Étoile", "am Markt", "Olé", "Central", "Süd", "Lumière", "Moin"};
constexpr std::array<std::string_view, 4> kPlaceEndings{"", " Gäste", " Guest", " free WiFi"};
constexpr std::array<std::string_view, 8> kPeople{"Anna", "José", "Zoë",   "Tom",
                                                  "Mila", "René", "Aylin", "Søren"};
constexpr std::array<std::string_view, 4> kThings{"'s phone", " hotspot", "-TV", "'s tablet"};
constexpr std::array<std::string_view, 5> kElsewhere{"Кафе ", "Дом ", "Σπίτι ", "カフェ", "网络"};

std::string upperCased(std::string text) {
  for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

std::string lowerCased(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

}  // namespace

Neighbourhood::Neighbourhood(std::size_t size, unsigned seed) : size_(size), random_(seed) {
  while (names_.size() < size * 60 / 100) names_.push_back(newName());
}

ArrayRef Neighbourhood::scan() {
  std::vector<ObjectRef> results;
  const auto add = [&](const TextRef& name) {
    const std::string address = "02:00:00:" + std::to_string(100'000'000 + results.size());
    const auto strength = -static_cast<std::int64_t>(30 + upTo(65));
    results.push_back(std::make_shared<const VqWiFiScanResult>(name, makeText(address), strength));
  };
  for (const std::string& name : names_) add(makeText(name));
  for (std::size_t i = 0; i < size_ * 5 / 100; ++i) add(nullptr);
  while (results.size() < size_) add(makeText(names_[upTo(names_.size())]));
  for (std::size_t i = results.size(); i > 1; --i) std::swap(results[i - 1], results[upTo(i)]);
  return std::make_shared<const Array>(std::move(results));
}

void Neighbourhood::change() {
  for (std::size_t i = names_.size(); i > 2; --i) std::swap(names_[i - 1], names_[1 + upTo(i - 1)]);
  for (std::size_t i = 0; i < names_.size() / 5; ++i) names_[names_.size() - 1 - i] = newName();
}

VqWiFiStatusRef Neighbourhood::status() const {
  return std::make_shared<const VqWiFiStatus>(
      VqWiFiStatus{makeText(names_.front()), makeText("02:00:00:100000000")});
}

// The number makes every name another one; where it would look odd, small neighbourhoods have few.
std::string Neighbourhood::newName() {
  const auto oneOf = [&](const auto& texts) { return std::string(texts[upTo(texts.size())]); };
  const std::size_t number = made_++;
  const std::size_t kind = upTo(100);
  std::string name;
  if (kind < 40) {
    // Six digits in no order: the factor has no divisor in common with a million.
    name = oneOf(kRouters) + std::to_string(1'000'000 + number * 764'321 % 1'000'000).substr(1) +
           oneOf(kRouterEndings);
  } else if (kind < 65) {
    name = oneOf(kHouseholds) + oneOf(kFamilies) + oneOf(kHouseholdEndings) + ' ' +
           std::to_string(number);
  } else if (kind < 80) {
    name =
        oneOf(kPlaces) + oneOf(kPlaceNames) + oneOf(kPlaceEndings) + ' ' + std::to_string(number);
  } else if (kind < 95) {
    name = oneOf(kPeople) + oneOf(kThings) + '-' + std::to_string(number);
  } else {
    name = oneOf(kElsewhere) + std::to_string(number);
  }
  const std::size_t letters = upTo(5);
  return letters == 0 ? upperCased(name) : letters == 1 ? lowerCased(name) : name;
}

}  // namespace wifi_profile
