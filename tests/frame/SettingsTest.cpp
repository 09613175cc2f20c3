#include "data/RunTimeError.h"
#include "frame/StartUp.h"
#include "frame/modGlobalVariables.h"
#include "frame/modRegistry.h"
#include "support/MessageScript.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwell {

namespace {

const QString key = QString::fromUtf16(registryKey);
constexpr auto machine = RegistryRoot::LocalMachine;

/// Settings in a temporary folder; the file itself does not stand yet.
class SettingsFile : public ::testing::Test {
protected:
    SettingsFile() { setSettingsFile(path()); }
    ~SettingsFile() override { setSettingsFile({}); }

    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("Brenmoor/Tarnwell.json")); }
    void put(const QByteArray& bytes) const {
        QDir(m_folder.path()).mkdir(QStringLiteral("Brenmoor"));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    [[nodiscard]] static QByteArray contentOf(const QString& file) {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("missing");
    }
    [[nodiscard]] static Value read(const char* name) {
        return ReadRegistryValue(machine, key, QString::fromUtf8(name));
    }
    static void write(const char* name, int type, const Value& data) {
        WriteRegistryValue(machine, key, QString::fromUtf8(name), type, data);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(SettingsFile, KeepsTextAndNumbersApart) {
    write("Provider", RegistryType::Text, QStringLiteral("12"));
    write("Count", RegistryType::Number, -7);
    write("Blob", 3, QStringLiteral("ignored"));
    write("None", RegistryType::Text, QString());
    setSettingsFile(path()); // as the next start
    EXPECT_EQ(read("Provider"), Value("12"));
    EXPECT_EQ(read("Count"), Value(-7));
    EXPECT_TRUE(read("Blob").isEmpty());
    EXPECT_EQ(read("None"), Value(""));
    EXPECT_TRUE(ReadRegistryValue(RegistryRoot::CurrentUser, key, QStringLiteral("Provider")).isEmpty());
}

TEST_F(SettingsFile, FindsNamesWithoutRegardToCaseAndKeepsTheirSpelling) {
    write("Provider", RegistryType::Text, QStringLiteral("one"));
    WriteRegistryValue(machine, key.toUpper(), QStringLiteral("PROVIDER"), RegistryType::Text,
                       QStringLiteral("two"));
    EXPECT_EQ(read("provider"), Value("two"));
    EXPECT_EQ(contentOf(path()).toLower().count("provider"), 1);
    EXPECT_TRUE(contentOf(path()).contains("\"Provider\""));
}

TEST_F(SettingsFile, SeesWhatAnotherProgramWrote) {
    write("Provider", RegistryType::Text, QStringLiteral("old"));
    put(contentOf(path()).replace("old", "a newer one"));
    EXPECT_EQ(read("Provider"), Value("a newer one"));
}

TEST_F(SettingsFile, ReadsNothingFromWhatIsNoSettings) {
    const char* contents[] = {
        "",
        "garbage{",
        "[1,2]",
        "{\"HKEY_LOCAL_MACHINE\": 5}",
        R"({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": "bare"}}})",
        R"({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": {"type": 1, "data": 5}}}})",
        R"({"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": {"type": 4, "data": 1e10}}}})",
    };
    for (const char* content : contents) {
        put(content);
        EXPECT_TRUE(read("Provider").isEmpty()) << content;
    }
}

TEST_F(SettingsFile, KeepsADamagedFileBesideTheNewOne) {
    put("garbage{ with a path in it");
    write("Provider", RegistryType::Text, QStringLiteral("x"));
    EXPECT_EQ(read("Provider"), Value("x"));
    EXPECT_EQ(contentOf(path() + QStringLiteral(".damaged")), "garbage{ with a path in it");
    write("Provider", RegistryType::Text, QStringLiteral("y"));
    EXPECT_EQ(contentOf(path() + QStringLiteral(".damaged")), "garbage{ with a path in it");
}

TEST_F(SettingsFile, ADamagedFileIsNotReplacedSilentlyAtTheStart) {
    put("{ a comma, too many, }");
    test::MessageScript messages{Answer::Ok};
    ReadSettings(QStringLiteral("/opt/Tarnwell"));
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_TRUE(messages.shown()[0].text.endsWith(path() + QStringLiteral(".damaged")));
    ReadSettings(QStringLiteral("/opt/Tarnwell")); // now they are whole
}

TEST_F(SettingsFile, AStoreThatCanNotBeWrittenFailsOnlyTheFirstStart) {
    setSettingsFile(QStringLiteral("/proc/Tarnwell/Tarnwell.json"));
    EXPECT_NO_THROW(write("Provider", RegistryType::Text, QStringLiteral("x")));
    EXPECT_TRUE(read("Provider").isEmpty());
    try {
        ReadSettings(QStringLiteral("/opt/Tarnwell"));
        ADD_FAILURE();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), 75);
    }
}

TEST_F(SettingsFile, AFirstStartWritesTheDefaults) {
    ReadSettings(QStringLiteral("/opt/Tarnwell"));
    EXPECT_EQ(gAppPath, QStringLiteral("/opt/Tarnwell"));
    EXPECT_EQ(gConnectionString,
              QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=/opt/Tarnwell/data/"
                             "Tarnwell.mdb;Persist Security Info=False"));
    EXPECT_EQ(gImportPath, QStringLiteral("/opt/Tarnwell/import/"));
    EXPECT_EQ(gLogPath, QStringLiteral("/opt/Tarnwell/logs/"));
    EXPECT_EQ(gLayoutPath, QStringLiteral("/opt/Tarnwell/layouts/"));
    EXPECT_EQ(gDataPath, QStringLiteral("/opt/Tarnwell/data/"));
    EXPECT_EQ(gReportDataPath, QStringLiteral("/opt/Tarnwell/Data/Report.mdb"));
    EXPECT_EQ(read("DataServer"), Value(""));
}

TEST_F(SettingsFile, AnExistingProviderGetsNoDefaults) {
    write("Provider", RegistryType::Text, QStringLiteral("SQLOLEDB.1"));
    write("DataSource", RegistryType::Text, QStringLiteral("Trades"));
    write("DataServer", RegistryType::Text, QStringLiteral("office"));
    write("ConnectionMisc", RegistryType::Text, QStringLiteral(";Integrated Security=SSPI;"));
    ReadSettings(QStringLiteral("/opt/Tarnwell"));
    EXPECT_EQ(gConnectionString,
              QStringLiteral("Provider=SQLOLEDB.1;Initial Catalog=Trades;Data Source=office;"
                             "Integrated Security=SSPI;"));
    EXPECT_EQ(gLogPath, QString());
    EXPECT_TRUE(read("LogPath").isEmpty());
}

TEST_F(SettingsFile, ADevelopersCopyTakesTheInstalledPath) {
    ReadSettings(QStringLiteral("/home/ann/my developments/bin"));
    EXPECT_EQ(gAppPath, QStringLiteral("C:\\Program Files\\Tarnwell"));
    EXPECT_EQ(gProgramFolder, QStringLiteral("/home/ann/my developments/bin"));
}

TEST(LoginName, OfMoreThan24CharactersIsEmpty) {
    EXPECT_EQ(fitLoginName(QString(24, u'a')), QString(24, u'a'));
    EXPECT_EQ(fitLoginName(QString(25, u'a')), QString());
}

} // namespace

} // namespace tarnwell
