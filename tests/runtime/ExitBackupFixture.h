#pragma once

#include "data/backup/BackupFiles.h"
#include "data/file/DatabaseFigures.h"
#include "data/file/DatabaseFile.h"
#include "runtime/BackupSettings.h"
#include "runtime/DataEnvironment.h"
#include "runtime/ExitBackup.h"
#include "runtime/RunTime.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "support/MessageScript.h"
#include "support/TemporaryDatabase.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tarnwell::test {

/// A program that works on a database, and whose backups come into a chosen folder.
class ExitBackup : public testing::Test {
protected:
    ExitBackup() {
        setSettingsFile(database.folder() + "/settings.json");
        gRegistryKey = "Software\\Brenmoor\\Tarnwell";
        gProgramFolder = database.folder() + '/';
        gConnectionString = database.connectionString();
        EXPECT_TRUE(QDir().mkpath(folder));
        saveBackupFolder(folder);
        setClock([this] { return DateTime{today, QTime(18, 0)}; });
        (void)DataEnvironment::cnnConnection();
        DataEnvironment::close();
    }
    ~ExitBackup() override {
        setClock({});
        setSettingsFile({});
        gProgramFolder.clear();
        gConnectionString.clear();
    }

    [[nodiscard]] QStringList backups() const {
        return QDir(folder).entryList(QDir::Files | QDir::NoDotAndDotDot, QDir::Name);
    }
    /// What the next start shows.
    QString report() {
        MessageScript script{Answer::Ok};
        reportFailedBackup();
        return script.shown().empty() ? QString() : script.shown().front().text;
    }

    TemporaryDatabase database;
    QString folder = database.folder() + "/chosen";
    QDate today{2026, 11, 25};
};

} // namespace tarnwell::test
