// The load of the 20 MHz channels, and the best channels. Any thread.
#pragma once

#include <array>
#include <optional>
#include <set>
#include <vector>

#include "analysis/checks/Subject.h"

namespace wifi_profile::checks {

// Measures of the load, the best first.
enum class Measure {
  busyTime,     // survey: share of time with others' frames or other noise, 0 to 1
  utilization,  // BSS Load: the same as an access point measures it, 0 to 255
  neighbours,   // number of others' boxes that are heard well, see `congestedNeighbours`
};
inline constexpr std::array kMeasures{Measure::busyTime, Measure::utilization, Measure::neighbours};

struct Load {
  Measure measure = Measure::neighbours;
  double amount = 0;

  bool operator==(const Load&) const = default;
};

// One 20 MHz channel, or all those of a wide channel. The first one is the one to recommend.
using Candidate = std::vector<int>;

class ChannelLoads {
 public:
  // Refers to the question, which must outlive it. Boxes of the subject's own network (nil: none)
  // do not count as neighbours. `best` counts them, except the subject's own box, which would move.
  ChannelLoads(const Question& question, const Subject* subject);

  // Returns the load by the first known measure. Empty if no measure is known.
  std::optional<Load> of(ieee80211::Band band, int channel) const;
  bool isCongested(const Load& load) const;
  // Judges each channel by its first known measure. A wide candidate is congested if one of its
  // channels is. Empty if the load of some channels is unknown and no known one is congested.
  std::optional<bool> isCongested(ieee80211::Band band, const Candidate& candidate) const;

  // Returns the least loaded candidate, by the first measure that is known for all candidates. A
  // wide candidate counts as its most loaded channel. Among equal candidates the one with the
  // subject's channel wins, then the first. Candidates that are congested by the best known
  // measure come after the others. Empty without candidates or without a common measure.
  std::optional<int> best(ieee80211::Band band, const std::vector<Candidate>& candidates) const;

 private:
  // One access point device on one channel, with all its networks.
  struct Box {
    ieee80211::Band band = ieee80211::Band::ghz2;
    int primary = 0;
    std::set<int> overlapped;
    bool isHeardWell = false;  // false: the driver does not report its strength
    bool isOwn = false;        // has the subject's network
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

  const facts::Facts& facts_;
  const Settings& settings_;
  const facts::AccessPoint* own_;  // nil: none, or not received
  std::optional<ieee80211::OperatingChannel> current_;
  std::vector<Box> boxes_;  // without the subject's
};

}  // namespace wifi_profile::checks
