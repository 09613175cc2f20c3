#pragma once

#include <QString>
#include <QStringList>

namespace tarnwell::test {

struct ToolResult {
    int code = -1;
    QString out;
    QString err;
};

/// Runs tarnwell-db in this process; the arguments are those behind its name.
[[nodiscard]] ToolResult runToolWith(const QStringList& arguments);

/// Changes a closed or open database behind the system's back, with no relation or rule in the way.
void breakDatabase(const QString& path, const QString& sql);

/// All rows of all tables as text, in the order of their keys.
[[nodiscard]] QString dump(const QString& path);

} // namespace tarnwell::test
