// How busy the 20 MHz channels are, and which ones are best. Any thread.
#pragma once

#include <array>
#include <optional>
#include <set>
#include <vector>

#include "checks/Subject.h"

namespace wifi_profile::checks {

// Ways to tell, the best first.
enum class Measure {
  busyTime,     // the radio's survey: share of time with others' frames or other noise, 0 to 1
  utilization,  // BSS Load of an access point: the same as that one hears it, 0 to 255
  neighbours,   // others' boxes that are heard well, see `congestedNeighbours`
};
inline constexpr std::array kMeasures{Measure::busyTime, Measure::utilization, Measure::neighbours};

struct Load {
  Measure measure = Measure::neighbours;
  double amount = 0;

  bool operator==(const Load&) const = default;
};

// One 20 MHz channel, or several that a wide channel takes: the first is the one to recommend.
using Candidate = std::vector<int>;

class ChannelLoads {
 public:
  // Looks into the question. The boxes of the subject's own network (nil: none) do not count among
  // the neighbours; `best` counts them, but for the subject's own box, which would move.
  ChannelLoads(const Question& question, const Subject* subject);

  // By the first measure that is known; nothing when none is.
  std::optional<Load> of(ieee80211::Band band, int channel) const;
  bool isCongested(const Load& load) const;
  // Each channel by what is known of it. A wide candidate is when one of its channels is. Nothing:
  // it is not known of all of them, and none of those known is congested.
  std::optional<bool> isCongested(ieee80211::Band band, const Candidate& candidate) const;

  // The least loaded of the candidates, of which a wide one counts as its worst part, by the first
  // measure that is known for all; of equal ones that with the subject's channel, then the first.
  // One that is congested by a better measure comes after those that are not. Nothing without
  // candidates or without a common measure.
  std::optional<int> best(ieee80211::Band band, const std::vector<Candidate>& candidates) const;

 private:
  // Networks of one box on one channel.
  struct Box {
    ieee80211::Band band = ieee80211::Band::ghz2;
    int primary = 0;
    std::set<int> overlapped;
    bool isHeardWell = false;  // no: the driver does not say how strong it is
    bool isOwn = false;        // of the subject's network
  };

  enum class Counted { others, all };  // boxes

  void collectBoxes(const Question& question, const Subject* subject);
  std::optional<double> amount(Measure measure, ieee80211::Band band, int channel,
                               Counted counted) const;
  std::optional<double> busyShare(ieee80211::Band band, int channel) const;
  std::optional<double> utilization(ieee80211::Band band, int channel) const;
  std::optional<double> neighbours(ieee80211::Band band, int channel, Counted counted) const;
  std::optional<double> worstAmount(Measure measure, ieee80211::Band band,
                                    const Candidate& candidate) const;

  const Facts& facts_;
  const Settings& settings_;
  const AccessPoint* own_;  // nil: none, or not heard
  std::optional<ieee80211::OperatingChannel> current_;
  std::vector<Box> boxes_;  // but for the subject's
};

}  // namespace wifi_profile::checks
