#include "data/engine/ConnectionString.h"

#include <QStringList>

namespace tarnwell {

QString fileConnectionString(const QString& path) {
    return QStringLiteral("Provider=%1;Data Source=%2").arg(fileProvider, path);
}

QString connectionValue(const QString& connectionString, QLatin1String key) {
    QString value;
    for (const QString& part : connectionString.split(QLatin1Char(';'))) {
        const qsizetype equals = part.indexOf(QLatin1Char('='));
        if (equals >= 0 && part.first(equals).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            value = part.sliced(equals + 1).trimmed();
    }
    const bool isQuoted =
        value.size() > 1 && value.front() == QLatin1Char('"') && value.back() == value.front();
    return isQuoted ? value.sliced(1, value.size() - 2) : value;
}

} // namespace tarnwell
