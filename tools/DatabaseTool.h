#pragma once

#include <QStringList>
#include <QTextStream>

namespace tarnwell::tool {

/// Where the tool speaks.
struct Output {
    QTextStream& out;
    QTextStream& err;
    bool showsProgress = false; ///< A line on `err` that is written over and over.
};

/// The whole of tarnwell-db but for its streams. Returns the exit code: 0, 1 for a failure or a finding,
/// 2 for wrong arguments.
[[nodiscard]] int runTool(const QStringList& arguments, Output output);

} // namespace tarnwell::tool
