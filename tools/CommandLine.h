#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace tarnwell::tool {

enum class Command { Create, Sample, Check, Backup, Restore };

/// What the user asked for, complete and checked.
struct Request {
    Command command = Command::Check;
    QStringList files;
    bool overwrite = false;
    QString scale;
    quint64 seed = 0;
};

/// Text to show instead of doing anything: help, the version, or what is wrong with the arguments.
struct Notice {
    QString text;
    bool isError = false;
};

/// `arguments` begin with the program's name.
[[nodiscard]] std::variant<Request, Notice> parseArguments(const QStringList& arguments);

} // namespace tarnwell::tool
