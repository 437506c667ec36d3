// Runs one piece of work on lists of networks once, for a tool that counts its instructions:
//     scan_list_instructions <work> <results of a scan>
// Everything that belongs to the work, and nothing else, happens inside `measured`. `benchmarks/
// instructions` runs it under callgrind and prints what came out.

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <malloc.h>
#include <map>
#include <string>

#include "benchmarks/PlainScanList.h"
#include "benchmarks/ScanListInputs.h"
#include "diagnostic/wifi/ScanList.h"
#include "runtime/IcuNameCollator.h"

namespace wifi_profile {
namespace {

// A scan with what was made of it, and the scans after it.
struct Scene {
  // Between two scans, a fifth of the names changes if `changes`.
  Scene(std::size_t size, std::size_t rescans, bool changes) : air(size, 1), first(air.scan()) {
    status = air.status();
    for (; scans.size() < rescans; scans.push_back(air.scan())) {
      if (changes) air.change();
    }
    before = deduplicated(first, status, keys);
    plainBefore = plain.pairByPair(first, *status);
    if (*before.listed != plainBefore.listed) {
      std::fputs("the plain way makes another list\n", stderr);
      std::exit(EXIT_FAILURE);
    }
    // The collators' tables are read now, and not in what is measured.
    plain.bySortKeys(first, *status);
  }

  Neighbourhood air;
  ArrayRef first;
  std::vector<ArrayRef> scans;
  VqWiFiStatusRef status;
  SortKeys keys;
  PlainScanList plain;
  Deduplicated before;
  PlainNetworks plainBefore;
};

// What the measured work leaves behind: it is not torn down while instructions are counted.
struct Outcome {
  std::vector<Deduplicated> networks;
  std::vector<PlainNetworks> plainNetworks;
  std::vector<PlainRows> rows;
  NetworkListRef list;
};

void rescan(Scene& scene, Outcome& outcome) {
  outcome.networks.reserve(scene.scans.size());
  const Deduplicated* before = &scene.before;
  for (const ArrayRef& scan : scene.scans) {
    const Deduplicated& after =
        outcome.networks.emplace_back(deduplicated(scan, scene.status, scene.keys));
    outcome.rows.push_back({.lost = rowsMissingFrom(before->listed, after.filtered),
                            .found = rowsMissingFrom(after.listed, before->filtered)});
    before = &after;
  }
}

void plainRescan(Scene& scene, Outcome& outcome) {
  outcome.plainNetworks.reserve(scene.scans.size());
  const PlainNetworks* before = &scene.plainBefore;
  for (const ArrayRef& scan : scene.scans) {
    const PlainNetworks& after =
        outcome.plainNetworks.emplace_back(scene.plain.pairByPair(scan, *scene.status));
    outcome.rows.push_back(PlainScanList::rows(before->listed, after.listed));
    before = &after;
  }
}

void firstList(Scene& scene, Outcome& outcome) {
  SortKeys keys;
  outcome.networks.push_back(deduplicated(scene.scans.front(), scene.status, keys));
}

void plainFirstListPairByPair(Scene& scene, Outcome& outcome) {
  outcome.plainNetworks.push_back(scene.plain.pairByPair(scene.scans.front(), *scene.status));
}

void plainFirstListBySortKeys(Scene& scene, Outcome& outcome) {
  outcome.plainNetworks.push_back(scene.plain.bySortKeys(scene.scans.front(), *scene.status));
}

void tap(Scene& scene, Outcome& outcome) {
  const ScanResultRef& network = (*scene.before.listed)[scene.before.listed->size() / 3];
  outcome.list = sortedByName(with(without(scene.before.listed, network), network), scene.keys);
}

void plainTap(Scene& scene, Outcome& outcome) {
  std::vector<ScanResultRef>& list = outcome.plainNetworks.emplace_back().listed;
  list = *scene.before.listed;
  const ScanResultRef network = list[list.size() / 3];
  std::erase(list, network);
  list.push_back(network);
  scene.plain.sortPairByPair(list);
}

struct Work {
  std::size_t rescans;
  bool changes;
  std::function<void(Scene&, Outcome&)> run;
};

const std::map<std::string, Work>& works() {
  static const std::map<std::string, Work> all{
      {"first", {1, true, firstList}},
      {"first-plain-pairs", {1, true, plainFirstListPairByPair}},
      {"first-plain-keys", {1, true, plainFirstListBySortKeys}},
      {"rescan", {1, true, rescan}},
      {"rescan-plain", {1, true, plainRescan}},
      {"rescans", {12, true, rescan}},
      {"rescans-plain", {12, true, plainRescan}},
      {"unchanged", {1, false, rescan}},
      {"unchanged-plain", {1, false, plainRescan}},
      {"tap", {1, false, tap}},
      {"tap-plain", {1, false, plainTap}},
  };
  return all;
}

[[gnu::noinline]] void measured(const Work& work, Scene& scene, Outcome& outcome) {
  work.run(scene, outcome);
}

}  // namespace
}  // namespace wifi_profile

int main(int count, char** arguments) {
  using namespace wifi_profile;
  const auto work = count == 3 ? works().find(arguments[1]) : works().end();
  if (work == works().end()) {
    std::fputs("usage: scan_list_instructions <work> <results of a scan>\n", stderr);
    return EXIT_FAILURE;
  }
  runtime::IcuNameCollator collator("en");
  const InstalledPlatform platform({.collator = &collator});
  Scene scene(std::strtoul(arguments[2], nullptr, 10), work->second.rescans, work->second.changes);
  Outcome outcome;
  malloc_trim(0);  // What building the scene left scattered is not tidied up in what is measured.
  measured(work->second, scene, outcome);
  return EXIT_SUCCESS;
}
