#pragma once

#include <QString>

#include <benchmark/benchmark.h>

namespace tarnwell::bench {

/// Opens the large sample on the program's shared connection. TARNWELL_SAMPLE names its file (made by
/// `tarnwell-db sample FILE --scale large`), of which the benchmarks change a copy; or it is the connection
/// string of a server's catalog with that sample, which they change itself. False when there is none, which
/// skips the benchmark.
[[nodiscard]] bool openLargeSample(benchmark::State& state);

/// Middle value of the first column of the statement's rows, as text: where a search of a person would start.
[[nodiscard]] QString middleOf(const QString& sql);

} // namespace tarnwell::bench
