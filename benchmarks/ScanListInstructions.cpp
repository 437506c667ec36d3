// Runs one piece of work on lists of networks once, for a tool that counts its instructions:
//     scan_list_instructions <work> <results of a scan>
// Everything that belongs to the work, and nothing else, happens inside `measured`. `benchmarks/
// instructions` runs it under callgrind and prints what came out.

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>

#include "benchmarks/PlainScanList.h"
#include "benchmarks/ScanListInputs.h"
#include "runtime/IcuNameCollator.h"
#include "wifi/ScanList.h"

namespace wifi_profile {
namespace {

// A scan, the scan after it, and what was made of the first one.
struct Scene {
  explicit Scene(std::size_t size, bool changes) : air(size, 1), first(air.scan()) {
    if (changes) air.change();
    second = air.scan();
    status = air.status();
    before = deduplicated(first, status, order);
    plainBefore = plain.pairByPair(first, *status);
    // The collators' tables are read now, and not in what is measured.
    plain.bySortKeys(first, *status);
  }

  Neighbourhood air;
  ArrayRef first;
  ArrayRef second;
  VqWiFiStatusRef status;
  NameOrder order;
  PlainScanList plain;
  Deduplicated before;
  PlainNetworks plainBefore;
};

// What the measured work leaves behind: it is not torn down while instructions are counted.
struct Outcome {
  Deduplicated networks;
  PlainNetworks plainNetworks;
  PlainRows rows;
  NetworkListRef list;
};

void rescan(Scene& scene, Outcome& outcome) {
  outcome.networks = deduplicated(scene.second, scene.status, scene.order);
  outcome.rows = {.lost = rowsMissingFrom(scene.before.listed, outcome.networks.filtered),
                  .found = rowsMissingFrom(outcome.networks.listed, scene.before.filtered)};
}

void plainRescan(Scene& scene, Outcome& outcome) {
  outcome.plainNetworks = scene.plain.pairByPair(scene.second, *scene.status);
  outcome.rows = PlainScanList::rows(scene.plainBefore.listed, outcome.plainNetworks.listed);
}

void firstList(Scene& scene, Outcome& outcome) {
  NameOrder order;
  outcome.networks = deduplicated(scene.second, scene.status, order);
}

void plainFirstListPairByPair(Scene& scene, Outcome& outcome) {
  outcome.plainNetworks = scene.plain.pairByPair(scene.second, *scene.status);
}

void plainFirstListBySortKeys(Scene& scene, Outcome& outcome) {
  outcome.plainNetworks = scene.plain.bySortKeys(scene.second, *scene.status);
}

void tap(Scene& scene, Outcome& outcome) {
  const ScanResultRef& network = (*scene.before.listed)[scene.before.listed->size() / 3];
  outcome.list = sortedByName(with(without(scene.before.listed, network), network), scene.order);
}

void plainTap(Scene& scene, Outcome& outcome) {
  std::vector<ScanResultRef>& list = outcome.plainNetworks.listed;
  list = *scene.before.listed;
  const ScanResultRef network = list[list.size() / 3];
  std::erase(list, network);
  list.push_back(network);
  scene.plain.sortPairByPair(list);
}

struct Work {
  bool changes;  // a fifth of the names
  std::function<void(Scene&, Outcome&)> run;
};

const std::map<std::string, Work>& works() {
  static const std::map<std::string, Work> all{
      {"first", {true, firstList}},
      {"first-plain-pairs", {true, plainFirstListPairByPair}},
      {"first-plain-keys", {true, plainFirstListBySortKeys}},
      {"rescan", {true, rescan}},
      {"rescan-plain", {true, plainRescan}},
      {"unchanged", {false, rescan}},
      {"unchanged-plain", {false, plainRescan}},
      {"tap", {false, tap}},
      {"tap-plain", {false, plainTap}},
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
  const ScopedInstall<NameCollator> collator(std::make_shared<IcuNameCollator>("en"));
  Scene scene(std::strtoul(arguments[2], nullptr, 10), work->second.changes);
  Outcome outcome;
  measured(work->second, scene, outcome);
  return EXIT_SUCCESS;
}
