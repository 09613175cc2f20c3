#include "runtime/BackupAttempt.h"

#include "runtime/BackupSettings.h"
#include "runtime/DiskFile.h"
#include "runtime/modRegistry.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace tarnwell {

namespace {

constexpr qsizetype fileSize = 4096;
constexpr qsizetype longestFailure = 600;
const QString databaseMember = QStringLiteral("database");
const QString dayMember = QStringLiteral("day");
const QString failureMember = QStringLiteral("failure");

QString attemptFile() {
    return QFileInfo(settingsFile()).absolutePath() + QStringLiteral("/Tarnwell.backup");
}

/// Of the database at work, without its name or password.
QString fingerprint() {
    return QString::fromLatin1(
        QCryptographicHash::hash(databaseAtWork().shown.toUtf8(), QCryptographicHash::Sha256).toHex());
}

bool isStored(const QByteArray& bytes) {
    QFile file(attemptFile());
    return QDir().mkpath(QFileInfo(file.fileName()).path()) &&
           file.open(QIODevice::ReadWrite | QIODevice::Unbuffered) && file.write(bytes) == bytes.size();
}

void storeAttempt(const QJsonObject& object) {
    if (!isStored(QJsonDocument(object).toJson(QJsonDocument::Compact).leftJustified(fileSize, ' ')))
        std::fprintf(stderr, "%s can't be written.\n", qPrintable(attemptFile()));
}

} // namespace

std::optional<BackupAttempt> readBackupAttempt() {
    const QByteArray bytes = readPlainFile(attemptFile(), fileSize).value_or(QByteArray());
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    const QDate day = QDate::fromString(object[dayMember].toString(), Qt::ISODate);
    if (!day.isValid() || object[databaseMember].toString() != fingerprint())
        return std::nullopt;
    return BackupAttempt{.day = day, .failure = object[failureMember].toString()};
}

void recordBackupAttempt(const BackupAttempt& attempt) {
    storeAttempt({{databaseMember, fingerprint()},
                  {dayMember, attempt.day.toString(Qt::ISODate)},
                  {failureMember, attempt.failure.left(longestFailure)}});
}

void forgetBackupAttempt() {
    storeAttempt({});
}

QString backupLockFile() {
    return attemptFile() + QStringLiteral(".lock");
}

} // namespace tarnwell
