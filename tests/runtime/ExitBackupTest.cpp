#include "data/backup/BackupFiles.h"
#include "data/file/DatabaseFigures.h"
#include "data/file/DatabaseFile.h"
#include "runtime/BackupSettings.h"
#include "runtime/DataEnvironment.h"
#include "runtime/ExitBackupFixture.h"
#include "runtime/RunTime.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "support/MessageScript.h"
#include "support/TemporaryDatabase.h"
#include "support/TestServer.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <thread>

namespace tarnwell::test {
namespace {

TEST_F(ExitBackup, TheFirstEndOfADayMakesOneAndRemovesOldOnes) {
    for (int day = 0; day < 3; ++day) {
        backUpAtExit();
        database.add("MasterTask", {{"Name", "later"}});
        backUpAtExit();
        today = today.addDays(1);
    }
    ASSERT_EQ(backups().size(), 3);
    EXPECT_TRUE(backups().front().startsWith("daily-")) << backups().front().toStdString();
    EXPECT_TRUE(integrityProblems(folder + '/' + backups().back()).isEmpty());
    EXPECT_EQ(lastBackupTime().value().date(), QDate(2026, 11, 27));
    today = QDate(2027, 1, 1);
    for (int day = 0; day < 7; ++day, today = today.addDays(1))
        backUpAtExit();
    EXPECT_EQ(backups().size(), 8) << "seven days, and the latest of the week in November";
    EXPECT_EQ(report(), "");
}

TEST_F(ExitBackup, ASettingStopsIt) {
    saveBacksUpAtExit(false);
    backUpAtExit();
    EXPECT_TRUE(backups().isEmpty());
    EXPECT_EQ(report(), "");
}

TEST_F(ExitBackup, TwoProgramsThatEndAtOnceMakeOne) {
    {
        std::vector<std::jthread> programs;
        for (int i = 0; i < 3; ++i)
            programs.emplace_back([] { backUpAtExit(); });
    }
    EXPECT_EQ(backups().size(), 1);
    EXPECT_EQ(report(), "");
}

TEST_F(ExitBackup, AFolderThatIsNotThereIsReportedOnceAndNeverMade) {
    saveBackupFolder(database.folder() + "/drive/backups");
    backUpAtExit();
    EXPECT_FALSE(QFile::exists(database.folder() + "/drive"));
    const QString text = report();
    EXPECT_TRUE(text.startsWith("The daily backup of 11/25/26 could not be made:\nPath not found ("))
        << text.toStdString();
    EXPECT_EQ(report(), "") << "once";
    backUpAtExit();
    EXPECT_NE(report(), "") << "the next attempt failed as well";
    backUpAtExit();
    saveBackupFolder(folder);
    backUpAtExit();
    EXPECT_EQ(report(), "") << "it succeeded in the end";
    EXPECT_EQ(backups().size(), 1);
}

} // namespace
} // namespace tarnwell::test
