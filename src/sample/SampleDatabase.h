#pragma once

#include "data/recordset/Connection.h"
#include "sample/SampleScale.h"

#include <functional>

namespace tarnwell::sample {

/// Fills a new database with sample data. The same scale and seed give the same rows, keys included.
/// `progress` gets the number of jobs written so far.
void writeSample(
    Connection& connection, const Scale& scale, quint64 seed,
    const std::function<void(int)>& progress = [](int) {});

} // namespace tarnwell::sample
