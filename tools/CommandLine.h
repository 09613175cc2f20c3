#pragma once

#include "data/transfer/DatabaseAddress.h"

#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

namespace tarnwell::tool {

enum class Command { Create, Sample, Check, Copy, Backup, Restore, Migrate };

/// What the user asked for, complete and checked.
struct Request {
    Command command = Command::Check;
    std::vector<DatabaseAddress>
        databases;          ///< As many as the command takes: what it reads, then what it writes.
    bool overwrite = false; ///< Only where a file is written.
    QStringList users;      ///< Who is let into a catalog.
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
