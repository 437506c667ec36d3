// Any bytes as the elements of a frame: whatever they are, the result keeps its rules, and cutting
// the last octet off changes nothing that stands before the last element.

#include "Require.h"
#include "analysis/ieee80211/Invariants.h"

using namespace wifi_profile::ieee80211;

namespace {

// An input is capabilities and frequency, of two octets each with the low one first (a frequency of
// 0: not known), then the elements.
std::optional<ReceivedFrame> frameOf(Bytes input) {
  ByteReader reader(input);
  ReceivedFrame frame;
  frame.capabilities = reader.number16();
  if (const int frequency = reader.number16(); frequency != 0) frame.frequency = frequency;
  if (reader.failed()) return std::nullopt;
  frame.elements = reader.left();
  return frame;
}

AccessPointElements parseByTheRules(const ReceivedFrame& frame) {
  auto result = parseAccessPointElements(frame);
  const std::string broken = brokenRule(frame, result);
  require(broken.empty(), broken.c_str());
  return result;
}

// The bytes before the last element, of elements that are all there whole.
Bytes withoutLast(Bytes elements) {
  std::size_t last = 0;
  for (std::size_t at = 0; at < elements.size(); at += 2U + elements[at + 1]) last = at;
  return elements.first(last);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  auto frame = frameOf({bytes, size});
  if (!frame) return 0;
  parseByTheRules(*frame);
  frame->bssid = Bssid{2, 0, 0, 0, 0, 0x7E};
  if (parseByTheRules(*frame).truncated || frame->elements.empty()) return 0;

  auto cut = *frame;
  cut.elements = frame->elements.first(frame->elements.size() - 1);
  auto before = *frame;
  before.elements = withoutLast(frame->elements);
  const auto ofCut = parseByTheRules(cut);
  const auto ofBefore = parseByTheRules(before);
  const bool same = ofCut.network.ssid == ofBefore.network.ssid &&
                    ofCut.network.rates == ofBefore.network.rates &&
                    ofCut.network.securityElements == ofBefore.network.securityElements &&
                    ofCut.network.wps == ofBefore.network.wps &&
                    ofCut.country == ofBefore.country && ofCut.modes == ofBefore.modes &&
                    ofCut.others.size() == ofBefore.others.size();
  require(same, "what is cut off changes nothing before it");
  return 0;
}
