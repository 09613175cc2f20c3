#include "data/DiskPath.h"

#include <QDir>
#include <QFileInfo>

namespace tarnwell {

namespace {

/// The entry's own spelling in its folder, or nothing.
QString spellingIn(const QString& folder, const QString& name) {
    const QDir directory(folder.isEmpty() ? QStringLiteral(".") : folder);
    const QStringList entries =
        directory.entryList(QDir::AllEntries | QDir::Hidden | QDir::System, QDir::Name);
    for (const QString& entry : entries)
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    return {};
}

} // namespace

QString pathOnDisk(const QString& storedPath) {
    QString path = storedPath;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (!QFileInfo::exists(path)) {
        const QStringList parts = path.split(QLatin1Char('/'));
        QString found;
        for (qsizetype i = 0; i < parts.size(); ++i) {
            const QString& part = parts.at(i);
            const QString exact = found + part;
            if (!part.isEmpty() && !QFileInfo::exists(exact)) {
                const QString spelling = spellingIn(found, part);
                if (spelling.isEmpty()) {
                    found += parts.mid(i).join(QLatin1Char('/'));
                    break;
                }
                found += spelling;
            } else {
                found = exact;
            }
            if (i + 1 < parts.size())
                found += QLatin1Char('/');
        }
        path = found;
    }
    return QDir::toNativeSeparators(path);
}

} // namespace tarnwell
