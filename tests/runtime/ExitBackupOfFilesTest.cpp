#include "runtime/ExitBackupFixture.h"

#include <QFile>

// What only a database file has: damage, and a folder beside it.
namespace tarnwell::test {
namespace {

TEST_F(ExitBackup, DamagedDataAreReportedAndLeaveNoBackup) {
    database.connection().Close();
    QFile file(database.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2));
    file.write(QByteArray(static_cast<int>(file.size() / 2), '#'));
    file.close();
    backUpAtExit();
    EXPECT_TRUE(backups().isEmpty());
    EXPECT_TRUE(report().contains("damaged")) << report().toStdString();
}

TEST_F(ExitBackup, TheUsualFolderIsBesideTheDatabaseAndIsMade) {
    saveBackupFolder({});
    EXPECT_EQ(backupPlace().folder, database.folder() + "/backups");
    backUpAtExit();
    EXPECT_TRUE(QFile::exists(database.folder() + "/backups/daily-Tarnwell-2026-11-25.mdb"));
}

} // namespace
} // namespace tarnwell::test
