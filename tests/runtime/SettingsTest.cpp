#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "support/MessageScript.h"
#include "support/RaisedNumber.h"

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
    for (const char* provider : {"x", "y"}) {
        write("Provider", RegistryType::Text, provider);
        EXPECT_EQ(read("Provider"), Value(provider));
        EXPECT_EQ(contentOf(path() + ".damaged"), "garbage{ with a path in it");
    }
}

TEST_F(SettingsFile, ADamagedFileIsNotReplacedSilentlyAtTheStart) {
    put("{ a comma, too many, }");
    test::MessageScript messages{Answer::Ok};
    ReadSettings("/opt/Tarnwell");
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_TRUE(messages.shown()[0].text.endsWith(path() + ".damaged"));
    ReadSettings("/opt/Tarnwell"); // now they are whole
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

TEST(LoginName, OfMoreThan24CharactersIsEmpty) {
    EXPECT_EQ(fitLoginName(QString(24, u'a')), QString(24, u'a'));
    EXPECT_EQ(fitLoginName(QString(25, u'a')), QString());
}

} // namespace

} // namespace tarnwell
