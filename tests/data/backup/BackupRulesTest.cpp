#include "data/backup/BackupFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

const QDate wednesday(2026, 11, 25);

/// Days as texts: how many days before that Wednesday.
QString agesOf(const std::vector<QDate>& days) {
    QStringList ages;
    for (const QDate day : days)
        ages << QString::number(day.daysTo(wednesday));
    return ages.join(' ');
}

TEST(BackupRules, SevenDaysAndFourWeeksAreKept) {
    const struct {
        const char* what;
        const char* ages; ///< Of the daily backups that there are.
        const char* removed;
    } cases[] = {
        {"none yet", "", ""},
        {"the first week", "0 1 2 3 4 5 6", ""},
        {"the seven days begin in the week of the eighth", "0 1 2 3 4 5 6 7", "7"},
        {"of a week before the latest day stays", "0 1 2 3 4 5 6 10 11", "11"},
        {"days without a backup do not count", "0 10 20 30 40 50 60", ""},
        {"four weeks before the days", "0 1 2 3 4 5 6 10 17 24 31 38", "38"},
        {"a day that is still to come is kept and does not count", "-400 -1 0 1 2 3 4 5 6 10 11", "11"},
        {"two of one day count once", "0 0 1 1 2 3 4 5 6", ""},
    };
    for (const auto& row : cases) {
        std::vector<QDate> days;
        for (const QString& age : QString(row.ages).split(' ', Qt::SkipEmptyParts))
            days.push_back(wednesday.addDays(-age.toInt()));
        EXPECT_EQ(agesOf(daysToRemove(days, wednesday)), row.removed) << row.what;
    }
}

TEST(BackupRules, ThePresentDayAlwaysStaysInAYearOfDays) {
    std::vector<QDate> days;
    for (int i = 0; i < 365; ++i) {
        const QDate today = wednesday.addDays(i);
        days.push_back(today);
        for (const QDate removed : daysToRemove(days, today))
            std::erase(days, removed);
        ASSERT_EQ(days.back(), today);
    }
    EXPECT_EQ(days.size(), 11U);
    EXPECT_GE(days.front().daysTo(days.back()), 28);
}

TEST(BackupRules, ANameSaysWhatItWasMadeOf) {
    const QDateTime when(wednesday, QTime(17, 43, 1));
    EXPECT_EQ(backupLabel("Jobs of /office: 2"), "Jobs_of__office__2");
    const struct {
        QString name;
        BackupKind kind;
        QString label;
        QTime time;
    } cases[] = {
        {dailyBackupName("My-Jobs", wednesday), BackupKind::Daily, "My-Jobs", {}},
        {timedBackupName(BackupKind::ByHand, "Jobs", when), BackupKind::ByHand, "Jobs", when.time()},
        {timedBackupName(BackupKind::Before, "Jobs", when), BackupKind::Before, "Jobs", when.time()},
        {"before-version-2-2026-11-25-2.mdb", BackupKind::Before, "2", {}},
        {"daily-Jobs-2026-13-25.mdb", BackupKind::Other, "", {}},
        {"monday.mdb", BackupKind::Other, "", {}},
    };
    for (const auto& row : cases) {
        const BackupName read = readBackupName(row.name);
        EXPECT_EQ(read.kind, row.kind) << row.name.toStdString();
        EXPECT_EQ(read.label, row.label) << row.name.toStdString();
        EXPECT_EQ(read.time, row.time) << row.name.toStdString();
    }
}

TEST(BackupRules, OnlyDailyBackupsOfTheSameDatabaseAreRemoved) {
    const QTemporaryDir folder;
    const QStringList stay{"before-restore-Jobs-2020-01-01-120000.mdb", "daily-Other-2020-01-01.mdb",
                           "manual-Jobs-2020-01-01-120000.mdb", "monday.mdb"};
    QStringList made = stay;
    for (int age = 0; age < 40; ++age)
        made << dailyBackupName("Jobs", wednesday.addDays(-age));
    for (const QString& name : made)
        ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    removeOldBackups(folder.path(), "Jobs", wednesday);
    EXPECT_EQ(QDir(folder.path()).entryList({"daily-Jobs-*"}, QDir::Files).size(), 11);
    for (const QString& name : stay)
        EXPECT_TRUE(QFile::exists(folder.filePath(name))) << name.toStdString();
    EXPECT_EQ(
        newBackupPath(folder.path(), BackupKind::ByHand, "Jobs", QDateTime(QDate(2020, 1, 1), QTime(12, 0))),
        folder.filePath("manual-Jobs-2020-01-01-120001.mdb"));
    EXPECT_TRUE(backupsIn(folder.filePath("missing")).empty());
}

} // namespace
} // namespace tarnwell::test
