#include "data/backup/BackupFiles.h"

#include "data/RunTimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace tarnwell {

namespace {

QDateTime timeOf(const BackupName& name, const QFileInfo& file) {
    const QDateTime changed = file.lastModified();
    if (!name.day.isValid() || (!name.time.isValid() && changed.date() == name.day))
        return changed;
    return {name.day, name.time.isValid() ? name.time : QTime(0, 0)};
}

} // namespace

std::vector<BackupFile> backupsIn(const QString& folder) {
    std::vector<BackupFile> found;
    if (folder.isEmpty())
        return found;
    for (const QFileInfo& file : QDir(folder).entryInfoList({QStringLiteral("*.mdb")}, QDir::Files)) {
        const BackupName name = readBackupName(file.fileName());
        found.push_back({QDir::toNativeSeparators(file.filePath()), name, timeOf(name, file), file.size()});
    }
    std::ranges::stable_sort(found, std::greater(), &BackupFile::made);
    return found;
}

QString newBackupPath(const QString& folder, BackupKind kind, const QString& label, QDateTime when) {
    QString path;
    do {
        path = QDir(folder).filePath(timedBackupName(kind, label, when));
        when = when.addSecs(1); // Two within a second: the later one's name says a second more.
    } while (QFileInfo::exists(path));
    return QDir::toNativeSeparators(path);
}

void removeOldBackups(const QString& folder, const QString& label, QDate today) {
    std::vector<QDate> days;
    for (const BackupFile& file : backupsIn(folder))
        if (file.name.kind == BackupKind::Daily && file.name.label == label)
            days.push_back(file.name.day);
    QString left;
    for (const QDate day : daysToRemove(days, today))
        if (const QString path = QDir(folder).filePath(dailyBackupName(label, day));
            !QFile::remove(path) && QFileInfo::exists(path))
            left = path;
    if (!left.isEmpty())
        raise(Failure::FileAccess, left);
}

} // namespace tarnwell
