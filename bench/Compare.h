// Timing an operation against a reference in the same run, round by round, so that a noisy machine
// disturbs both alike.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <vector>

#include "base/FreedMemory.h"

namespace korvane::bench {

/// Wall time of the action.
template <typename Action>
double Milliseconds(Action action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double, std::milli> elapsed =
        std::chrono::steady_clock::now() - start;
    return elapsed.count();
}

/// The middle of the values, of which there must be one at least.
inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Times the operation as the benchmark (manual time) and the reference between its rounds; the
/// counter "ratio" is the median of operation / reference.
template <typename Operation, typename Reference>
void Compare(benchmark::State& state, Operation operation, Reference reference) {
    std::vector<double> references;
    std::vector<double> ratios;
    for (auto _ : state) {
        references.push_back(Milliseconds(reference));
        const double own = Milliseconds(operation);
        ratios.push_back(own / references.back());
        state.SetIterationTime(own / 1000);
    }
    state.counters["reference_ms"] = Median(references);
    state.counters["ratio"] = Median(ratios);
}

/// main() of a benchmark program that keeps freed memory as the editor does. Otherwise it depends
/// on the layout of the heap which side of a comparison pays for getting its pages anew.
inline int RunWithKeptHeap(int argc, char** argv) {
    KeepFreedMemory();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

}  // namespace korvane::bench
