// How long the list of networks takes, each piece of work beside the plain way to do it.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <map>
#include <memory>

#include "benchmarks/PlainScanList.h"
#include "benchmarks/ScanListInputs.h"
#include "diagnostic/wifi/ScanList.h"
#include "runtime/IcuNameCollator.h"

namespace wifi_profile {
namespace {

// Two scans, one after the other, and what was made of the first of them.
struct Scene {
  Scene(std::size_t size, bool changes) : air(size, 1), first(air.scan()) {
    status = air.status();
    before = deduplicated(first, status, keys);
    plainBefore = plain.pairByPair(first, *status);
    if (changes) air.change();
    second = air.scan();
  }

  runtime::IcuNameCollator collator{"en"};
  const InstalledPlatform platform{{.collator = &collator}};
  const PlainScanList plain;
  SortKeys keys;
  Neighbourhood air;
  ArrayRef first;
  ArrayRef second;
  VqWiFiStatusRef status;
  Deduplicated before;
  PlainNetworks plainBefore;
};

std::size_t sizeOf(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void firstList(benchmark::State& state) {
  Scene scene(sizeOf(state), false);
  for (auto _ : state) {
    SortKeys keys;
    benchmark::DoNotOptimize(deduplicated(scene.first, scene.status, keys));
  }
}

void firstListPairByPair(benchmark::State& state) {
  Scene scene(sizeOf(state), false);
  for (auto _ : state) {
    benchmark::DoNotOptimize(scene.plain.pairByPair(scene.first, *scene.status));
  }
}

void firstListBySortKeys(benchmark::State& state) {
  Scene scene(sizeOf(state), false);
  for (auto _ : state) {
    benchmark::DoNotOptimize(scene.plain.bySortKeys(scene.first, *scene.status));
  }
}

// Every rescan brings new objects and, where names change, new names; making them is not timed.
void rescan(benchmark::State& state, bool changes) {
  Scene scene(sizeOf(state), false);
  for (auto _ : state) {
    state.PauseTiming();
    if (changes) scene.air.change();
    scene.second = scene.air.scan();
    malloc_trim(0);  // what earlier scans freed is not part of the measurement
    state.ResumeTiming();
    Deduplicated after = deduplicated(scene.second, scene.status, scene.keys);
    benchmark::DoNotOptimize(rowsMissingFrom(scene.before.listed, after.filtered));
    benchmark::DoNotOptimize(rowsMissingFrom(after.listed, scene.before.filtered));
    state.PauseTiming();
    scene.before = std::move(after);
    state.ResumeTiming();
  }
}

void plainRescan(benchmark::State& state, bool changes) {
  Scene scene(sizeOf(state), false);
  for (auto _ : state) {
    state.PauseTiming();
    if (changes) scene.air.change();
    scene.second = scene.air.scan();
    malloc_trim(0);  // what earlier scans freed is not part of the measurement
    state.ResumeTiming();
    PlainNetworks after = scene.plain.pairByPair(scene.second, *scene.status);
    benchmark::DoNotOptimize(PlainScanList::rows(scene.plainBefore.listed, after.listed));
    state.PauseTiming();
    scene.plainBefore = std::move(after);
    state.ResumeTiming();
  }
}

// One network is taken out of the list and put back at its end, and the list is sorted.
void tap(benchmark::State& state) {
  Scene scene(sizeOf(state), false);
  const ScanResultRef network = (*scene.before.listed)[scene.before.listed->size() / 3];
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        sortedByName(with(without(scene.before.listed, network), network), scene.keys));
  }
}

void plainTap(benchmark::State& state) {
  Scene scene(sizeOf(state), false);
  const ScanResultRef network = (*scene.before.listed)[scene.before.listed->size() / 3];
  for (auto _ : state) {
    NetworkList list = *scene.before.listed;
    std::erase(list, network);
    list.push_back(network);
    scene.plain.sortPairByPair(list);
    benchmark::DoNotOptimize(list);
  }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  for (const std::int64_t size : {100, 1'000, 10'000, 100'000}) benchmark->Arg(size);
  benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(firstListPairByPair)->Apply(sizes);
BENCHMARK(firstListBySortKeys)->Apply(sizes);
BENCHMARK(firstList)->Apply(sizes);
BENCHMARK_CAPTURE(plainRescan, changed, true)->Apply(sizes);
BENCHMARK_CAPTURE(rescan, changed, true)->Apply(sizes);
BENCHMARK_CAPTURE(plainRescan, unchanged, false)->Apply(sizes);
BENCHMARK_CAPTURE(rescan, unchanged, false)->Apply(sizes);
BENCHMARK(plainTap)->Apply(sizes);
BENCHMARK(tap)->Apply(sizes);

}  // namespace
}  // namespace wifi_profile
