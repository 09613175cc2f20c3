#include "data/engine/ConnectionString.h"
#include "runtime/DatabaseSettings.h"
#include "runtime/DiskFile.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "support/Limits.h"
#include "support/MessageScript.h"
#include "support/RaisedNumber.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace tarnwell {

namespace {

const QString key = QString::fromUtf16(registryKey);
constexpr auto machine = RegistryRoot::LocalMachine;

/// Settings in a temporary folder; the file itself does not stand yet.
class SettingsFile : public ::testing::Test {
protected:
    SettingsFile() { setSettingsFile(path()); }
    ~SettingsFile() override { setSettingsFile({}); }

    [[nodiscard]] QString path() const { return m_folder.filePath("Brenmoor/Tarnwell.json"); }
    void put(const QByteArray& bytes) const {
        QDir(m_folder.path()).mkdir("Brenmoor");
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    [[nodiscard]] static QByteArray contentOf(const QString& file) {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("missing");
    }
    [[nodiscard]] static Value read(const char* name) { return ReadRegistryValue(machine, key, name); }
    static void write(const char* name, int type, const Value& data) {
        WriteRegistryValue(machine, key, name, type, data);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(SettingsFile, KeepsTextAndNumbersApart) {
    write("Provider", RegistryType::Text, "12");
    write("Count", RegistryType::Number, -7);
    write("Blob", 3, "ignored");
    write("None", RegistryType::Text, QString());
    setSettingsFile(path()); // as the next start
    EXPECT_EQ(read("Provider"), Value("12"));
    EXPECT_EQ(read("Count"), Value(-7));
    EXPECT_TRUE(read("Blob").isEmpty());
    EXPECT_EQ(read("None"), Value(""));
    EXPECT_TRUE(ReadRegistryValue(RegistryRoot::CurrentUser, key, "Provider").isEmpty());
}

TEST_F(SettingsFile, FindsNamesWithoutRegardToCaseAndKeepsTheirSpelling) {
    write("Provider", RegistryType::Text, "one");
    WriteRegistryValue(machine, key.toUpper(), "PROVIDER", RegistryType::Text, "two");
    EXPECT_EQ(read("provider"), Value("two"));
    EXPECT_EQ(contentOf(path()).toLower().count("provider"), 1);
    EXPECT_TRUE(contentOf(path()).contains("\"Provider\""));
}

TEST_F(SettingsFile, SeesWhatAnotherProgramWrote) {
    write("Provider", RegistryType::Text, "old");
    put(contentOf(path()).replace("old", "a newer one"));
    EXPECT_EQ(read("Provider"), Value("a newer one"));
}

TEST_F(SettingsFile, WhatIsNoSettingsIsKeptAsideAndNotReplacedSilently) {
    const char* contents[] = {
        "",
        "garbage{ with a path in it",
        "[1,2]",
        R"({"HKEY_LOCAL_MACHINE": 5})",
        R"({"HKEY_LOCAL_MACHINE": [{}]})",
        R"({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": ["Provider"]}})",
        R"({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": "bare"}}})",
        R"({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": {"type": "1", "data": "x"}}}})",
        R"({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": {"type": 1, "data": 5}}}})",
        R"({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": {"type": 4, "data": 1e10}}}})",
    };
    for (const char* content : contents) {
        put(content);
        EXPECT_TRUE(read("Provider").isEmpty()) << content;
        test::MessageScript messages{Answer::Ok};
        ReadSettings("/opt/Tarnwell");
        ASSERT_EQ(messages.shown().size(), 1U) << content;
        EXPECT_TRUE(messages.shown()[0].text.endsWith(path() + ".damaged"));
        EXPECT_EQ(contentOf(path() + ".damaged"), content);
        ReadSettings("/opt/Tarnwell"); // now they are whole
    }
}

TEST_F(SettingsFile, WhatWasLostWhileTheProgramRunsIsSavedWithItsFolders) {
    ReadSettings("/opt/Tarnwell");
    for (const bool isRemoved : {false, true}) {
        put("garbage");
        if (isRemoved)
            QFile::remove(path());
        EXPECT_EQ(readDatabaseSettings().file,
                  isRemoved ? "/wages/Tarnwell.mdb" : "/opt/Tarnwell/data/Tarnwell.mdb")
            << "Options shows what is in use, not a server without a name";
        saveDatabaseSettings({.file = "/wages/Tarnwell.mdb", .reportFile = "/wages/Report.mdb"});
        ReadSettings("/elsewhere");
        EXPECT_TRUE(gConnectionString.contains("/wages/Tarnwell.mdb"));
        EXPECT_EQ(QStringList({gImportPath, gLogPath, gLayoutPath, gDataPath}),
                  QStringList({"/opt/Tarnwell/import/", "/opt/Tarnwell/logs/", "/opt/Tarnwell/layouts/",
                               "/opt/Tarnwell/data/"}));
    }
}

TEST_F(SettingsFile, APipeOrDeviceInItsPlaceIsKeptAsideUnread) {
    put({});
    for (const bool isPipe : {true, false}) {
        QFile::remove(path());
        const QByteArray name = QFile::encodeName(path());
        ASSERT_EQ(isPipe ? ::mkfifo(name, 0600) : ::symlink("/dev/zero", name), 0);
        test::MessageScript messages{Answer::Ok};
        ReadSettings("/opt/Tarnwell");
        EXPECT_EQ(messages.shown().size(), 1U);
        EXPECT_TRUE(QFileInfo::exists(path() + ".damaged"));
        EXPECT_EQ(read("Provider"), Value(fileProvider.toString()));
    }
}

TEST_F(SettingsFile, AFullDiskLeavesTheOldValuesInForce) {
    gRegistryKey = key;
    saveDatabaseSettings({.engine = DatabaseEngine::SqlServer, .server = "office", .catalog = "Trades"});
    const QByteArray before = contentOf(path());
    {
        const test::FilesUpTo full(before.size());
        saveDatabaseSettings({.file = QString(before.size(), u'x')});
    }
    EXPECT_EQ(contentOf(path()), before);
    EXPECT_EQ(QDir(QFileInfo(path()).path()).entryList(QDir::Files), QStringList("Tarnwell.json"));
    EXPECT_EQ(readDatabaseSettings().catalog, "Trades");
}

TEST_F(SettingsFile, TwoThatSaveAtTheSameMomentLoseNothing) {
    constexpr int each = 40;
    const auto save = [](const char* name) {
        for (int number = 0; number < each; ++number)
            write(qPrintable(name + QString::number(number)), RegistryType::Number, number);
    };
    {
        const std::jthread one(save, "one");
        const std::jthread other(save, "other");
    }
    for (const char* name : {"one", "other"})
        for (int number = 0; number < each; ++number)
            EXPECT_EQ(read(qPrintable(name + QString::number(number))), Value(number));
}

TEST_F(SettingsFile, DefaultsGiveWayToWhoWasFirst) {
    const auto start = [](const char* provider, const char* source) {
        writeRegistryValues(machine, key,
                            {{.name = "DataSource", .data = source}, {.name = "Provider", .data = provider}},
                            "Provider");
    };
    start("first", "its own file");
    start("second", "another file");
    EXPECT_EQ(read("Provider"), Value("first"));
    EXPECT_EQ(read("DataSource"), Value("its own file"));
}

TEST_F(SettingsFile, AStoreThatCanNotBeWrittenFailsOnlyTheFirstStart) {
    setSettingsFile("/proc/Tarnwell/Tarnwell.json");
    EXPECT_NO_THROW(write("Provider", RegistryType::Text, "x"));
    EXPECT_TRUE(read("Provider").isEmpty());
    EXPECT_EQ(test::raisedNumber([] { ReadSettings("/opt/Tarnwell"); }), 75);
}

TEST_F(SettingsFile, AFirstStartWritesTheDefaults) {
    ReadSettings("/opt/Tarnwell");
    EXPECT_EQ(gAppPath, "/opt/Tarnwell");
    EXPECT_EQ(gConnectionString, "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/opt/Tarnwell/data/"
                                 "Tarnwell.mdb;Persist Security Info=False");
    EXPECT_EQ(gImportPath, "/opt/Tarnwell/import/");
    EXPECT_EQ(gLogPath, "/opt/Tarnwell/logs/");
    EXPECT_EQ(gLayoutPath, "/opt/Tarnwell/layouts/");
    EXPECT_EQ(gDataPath, "/opt/Tarnwell/data/");
    EXPECT_EQ(gReportDataPath, "/opt/Tarnwell/Data/Report.mdb");
    EXPECT_EQ(read("DataServer"), Value(""));
}

TEST_F(SettingsFile, AnExistingProviderGetsNoDefaults) {
    write("Provider", RegistryType::Text, "SQLOLEDB.1");
    write("DataSource", RegistryType::Text, "Trades");
    write("DataServer", RegistryType::Text, "office");
    write("ConnectionMisc", RegistryType::Text, ";Integrated Security=SSPI;");
    ReadSettings("/opt/Tarnwell");
    EXPECT_EQ(gConnectionString, "Provider=SQLOLEDB.1;Initial Catalog=Trades;Data Source=office;"
                                 "Integrated Security=SSPI;");
    EXPECT_EQ(gLogPath, QString());
    EXPECT_TRUE(read("LogPath").isEmpty());
}

TEST_F(SettingsFile, ADevelopersCopyTakesTheInstalledPath) {
    ReadSettings("/home/ann/my developments/bin");
    EXPECT_EQ(gAppPath, "C:\\Program Files\\Tarnwell");
    EXPECT_EQ(gProgramFolder, "/home/ann/my developments/bin");
}

TEST(PlainFile, IsReadUpToALength) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("file");
    EXPECT_EQ(readPlainFile(path, 5), std::nullopt);
    appendToFile(path, "five!");
    EXPECT_EQ(readPlainFile(path, 5), QByteArray("five!"));
    EXPECT_EQ(readPlainFile(path, 4), std::nullopt);
    EXPECT_EQ(readPlainFile("/dev/zero", 5), std::nullopt);
    EXPECT_EQ(readPlainFile(folder.path(), 5), std::nullopt);
}

TEST(LoginName, OfMoreThan24CharactersIsEmpty) {
    EXPECT_EQ(fitLoginName(QString(24, u'a')), QString(24, u'a'));
    EXPECT_EQ(fitLoginName(QString(25, u'a')), QString());
}

} // namespace

} // namespace tarnwell
