#include "runtime/ProgramFolders.h"

#include "runtime/StartUp.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "support/Limits.h"
#include "support/RaisedNumber.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tarnwell::test {

namespace {

/// A machine of its own, whose user has a home; whoever runs the tests is a user without privileges here.
class Folders : public ::testing::Test {
protected:
    Folders() {
        QStandardPaths::setTestModeEnabled(false);
        qputenv("XDG_DATA_HOME", path("home/data").toUtf8());
        qputenv("XDG_STATE_HOME", path("home/state").toUtf8());
        setSettingsFile(path("home/config/Tarnwell.json"));
        make("home");
        allow("", 0755);
        allow("home", 0777);
    }
    ~Folders() override {
        for (const char* folder : {"", "home", "home/config", "locked", "shared"})
            allow(folder, 0777);
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("XDG_STATE_HOME");
        QStandardPaths::setTestModeEnabled(true);
        setSettingsFile({});
        setProgramFolders({});
        gProgramFolder.clear();
    }

    [[nodiscard]] QString path(const QString& name) const { return m_root.filePath(name); }
    void make(const char* folder) const { ASSERT_TRUE(QDir().mkpath(path(folder))); }
    void allow(const char* folder, ::mode_t mode) const {
        (void)::chmod(QFile::encodeName(path(folder)).constData(), mode);
    }
    void put(const char* file, ::mode_t mode) const {
        ASSERT_TRUE(QFile(path(file)).open(QIODevice::WriteOnly));
        allow(file, mode);
    }

private:
    QTemporaryDir m_root;
};

} // namespace

TEST_F(Folders, EachKindOfProgramHasItsOwn) {
    for (const char* folder : {"copy/layouts", "locked/layouts", "shared/layouts", "shared/data", "usr/bin",
                               "usr/share/tarnwell/layouts", "usr/share/tarnwell/help", "half/bin"})
        make(folder);
    put("shared/data/Tarnwell.mdb", 0666);
    allow("shared/data", 0777);
    allow("copy", 0777);
    allow("usr/bin", 0777);
    for (const char* folder : {"locked", "shared", ""})
        allow(folder, 0555);
    const struct {
        const char *program, *database, *layouts, *logs, *errorLog, *missing;
    } cases[] = {
        {"copy", "copy/data/Tarnwell.mdb", "copy/layouts/", "copy/logs/", "home/state/tarnwell/ErrorLog.txt",
         ""},
        {"missing", "missing/data/Tarnwell.mdb", "missing/layouts/", "missing/logs/",
         "home/state/tarnwell/ErrorLog.txt", ""},
        {"locked", "home/data/tarnwell/Tarnwell.mdb", "locked/layouts/", "home/state/tarnwell/",
         "home/state/tarnwell/ErrorLog.txt", ""},
        {"shared", "shared/data/Tarnwell.mdb", "shared/layouts/", "home/state/tarnwell/",
         "home/state/tarnwell/ErrorLog.txt", ""},
        {"usr/bin", "home/data/tarnwell/Tarnwell.mdb", "usr/share/tarnwell/layouts/", "home/state/tarnwell/",
         "home/state/tarnwell/ErrorLog.txt", ""},
        {"half/bin", "home/data/tarnwell/Tarnwell.mdb", "half/share/tarnwell/layouts/",
         "home/state/tarnwell/", "home/state/tarnwell/ErrorLog.txt", "half/share/tarnwell/help/"},
        {"home/copy", "home/copy/data/Tarnwell.mdb", "home/copy/layouts/", "home/copy/logs/", "", ""},
    };
    const WithoutPrivileges user;
    for (const auto& row : cases) {
        const ProgramFolders folders = foldersOf(path(row.program), path(row.program));
        EXPECT_EQ(folders.database, path(row.database)) << row.program;
        EXPECT_EQ(folders.layouts, path(row.layouts)) << row.program;
        EXPECT_EQ(folders.logs, path(row.logs)) << row.program;
        EXPECT_EQ(folders.errorLog, *row.errorLog == '\0' ? QString() : path(row.errorLog)) << row.program;
        EXPECT_EQ(missingResource(folders), *row.missing == '\0' ? QString() : path(row.missing));
    }
}

TEST_F(Folders, AProgramThatMayNotWriteItsOwnLeavesNothingInIt) {
    make("usr/bin");
    make("usr/share/tarnwell/layouts");
    {
        const WithoutPrivileges user;
        ReadSettings(path("usr/bin"));
        WriteErrorLog(3021, "No current record.", {});
    }
    EXPECT_EQ(gConnectionString,
              "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path("home/data/tarnwell/Tarnwell.mdb") +
                  ";Persist Security Info=False");
    EXPECT_EQ(QStringList({gAppPath, gLayoutPath, gDataPath, gReportDataPath}),
              QStringList({path("usr/bin"), path("usr/share/tarnwell/layouts/"), path("home/data/tarnwell/"),
                           path("home/data/tarnwell/Report.mdb")}));
    EXPECT_TRUE(QFile::exists(gLogPath + "ErrorLog.txt")) << "the menu shows what is written";
    for (const char* folder : {"home/data/tarnwell", "home/state/tarnwell"}) {
        EXPECT_EQ(QFile::permissions(path(folder)) & (QFile::ReadGroup | QFile::ReadOther),
                  QFile::Permissions());
        EXPECT_TRUE(QFileInfo(path(folder)).isDir());
    }
    EXPECT_TRUE(QDir(path("usr/bin")).isEmpty());
}

TEST_F(Folders, AHomeThatCanNotBeWrittenFailsTheFirstStartAlone) {
    make("usr/bin");
    make("usr/share/tarnwell/layouts");
    for (const int start : {1, 2}) {
        allow("home", start == 1 ? 0555 : 0777);
        const WithoutPrivileges user;
        if (start == 1)
            EXPECT_EQ(raisedNumber([&] { ReadSettings(path("usr/bin")); }), 75);
        else
            EXPECT_NO_THROW(ReadSettings(path("usr/bin")));
    }
    allow("home/config", 0555);
    allow("home", 0555);
    const WithoutPrivileges user;
    EXPECT_NO_THROW(ReadSettings(path("usr/bin")));
}

} // namespace tarnwell::test
