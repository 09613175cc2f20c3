#pragma once

#include <QByteArray>
#include <QString>

namespace tarnwell::data {

/// A table's or column's name as a statement of an engine has it, in UTF-8.
[[nodiscard]] inline QByteArray quoted(const QString& name) {
    return '"' + name.toUtf8() + '"';
}

} // namespace tarnwell::data
