#pragma once

#include <QString>

#include <benchmark/benchmark.h>

namespace tarnwell::bench {

/// The folder with a copy of the large sample that the benchmarks may write to; the program's shared
/// connection opens it. The sample is the file that TARNWELL_SAMPLE names (made by `tarnwell-db sample FILE
/// --scale large`). False when there is none, which skips the benchmark.
[[nodiscard]] bool openLargeSample(benchmark::State& state);

/// Middle value of the first column of the statement's rows, as text: where a search of a person would start.
[[nodiscard]] QString middleOf(const QString& sql);

} // namespace tarnwell::bench
