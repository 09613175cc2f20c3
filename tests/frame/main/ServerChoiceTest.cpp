#include "frame/main/DatabaseStart.h"
#include "frame/main/frmOptions.h"
#include "runtime/DataEnvironment.h"
#include "runtime/StartUp.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "support/MessageScript.h"
#include "support/RaisedNumber.h"
#include "support/ScreenDriver.h"
#include "support/TestServer.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarnwell::test {

namespace {

/// A port of this computer that takes connections and never answers.
class SilentPort {
public:
    SilentPort() : m_socket(::socket(AF_INET, SOCK_STREAM, 0)) {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof m_address;
        auto* address = reinterpret_cast<sockaddr*>(&m_address);
        EXPECT_EQ(::bind(m_socket, address, size), 0);
        EXPECT_EQ(::listen(m_socket, 1), 0);
        EXPECT_EQ(::getsockname(m_socket, address, &size), 0);
    }
    ~SilentPort() { ::close(m_socket); }
    SilentPort(const SilentPort&) = delete;
    SilentPort& operator=(const SilentPort&) = delete;

    [[nodiscard]] QString number() const { return QString::number(ntohs(m_address.sin_port)); }

private:
    int m_socket;
    sockaddr_in m_address{};
};

/// A server of its own, by a socket and by TCP without encryption, that knows the user "clerk" with the
/// password "right". Its catalogs: a database of ours, one of an older version, and one of somebody else's.
class ServerChoice : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        port = SilentPort().number();
        folder = QDir::tempPath() + "/tarnwell-server-" + port;
        ASSERT_EQ(script({"start", folder, port}), 0) << "no server could be started";
        qputenv("TARNWELL_TEST_SERVER", (folder + ':' + port).toUtf8());
        ours = connectionValue(createTestCatalog(), QLatin1String("Initial Catalog"));
        for (const char* sql : {"CREATE ROLE clerk LOGIN PASSWORD 'right'", "CREATE ROLE reader LOGIN",
                                "CREATE DATABASE old TEMPLATE tarnwell_template", "CREATE DATABASE strange",
                                "CREATE DATABASE closed", "REVOKE CONNECT ON DATABASE closed FROM PUBLIC"})
            runOnServer("postgres", sql);
        runOnServer("old", "ALTER TABLE \"Job\" DROP COLUMN \"Foreman\"");
        runOnServer("strange", "CREATE TABLE \"Code\" (\"CodeKey\" integer, \"Recipe\" text)");
        runOnServer(ours, "GRANT SELECT ON ALL TABLES IN SCHEMA public TO reader");
        runOnServer(ours, "ALTER TABLE \"Job\" ADD COLUMN \"Weather\" text");
        runOnServer(ours, "CREATE TABLE \"Weather\" (\"WeatherKey\" integer)");
    }
    static void TearDownTestSuite() { EXPECT_EQ(script({"stop", folder}), 0); }

    ServerChoice() {
        setSettingsFile(home.filePath("settings.json"));
        gRegistryKey = QString::fromUtf16(registryKey);
        gProgramFolder = home.filePath("Tarnwell");
    }
    ~ServerChoice() override {
        theForm<frmOptions>().Unload();
        setSettingsFile({});
        gProgramFolder.clear();
    }

    static int script(const QStringList& arguments) {
        return QProcess::execute("sh",
                                 QStringList(TARNWELL_SOURCE_DIR "/tests/support/postgres.sh") + arguments);
    }
    static void store(const QString& server, const QString& catalog, const QString& misc) {
        const std::pair<const char*, QString> values[] = {{"Provider", "PostgreSQL"},
                                                          {"DataServer", server},
                                                          {"DataSource", catalog},
                                                          {"ConnectionMisc", misc}};
        for (const auto& [name, value] : values)
            WriteRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, name, RegistryType::Text, value);
    }
    static QByteArray settingsText() {
        QFile file(settingsFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// What a start with the stored settings shows, and writes into the error log.
    QString shownAtTheStart() {
        QFile log(errorLogFile());
        log.remove();
        MessageScript messages{Answer::Ok};
        ReadSettings(home.filePath("Tarnwell"));
        try {
            (void)DataEnvironment::cnnConnection();
        } catch (const RunTimeError& error) {
            ErrorHandler(error, {});
        }
        EXPECT_TRUE(log.open(QIODevice::ReadOnly));
        return messages.shown().at(0).text + '\n' + QString::fromUtf8(log.readAll());
    }

    static inline QString port;
    static inline QString folder;
    static inline QString ours;
    QTemporaryDir home;
};

} // namespace

TEST_F(ServerChoice, EachReasonHasItsSentenceInTheTestAndAtTheStart) {
    const QString socket = folder + ':' + port;
    const QString tcp = "127.0.0.1:" + port;
    const struct {
        QString server, catalog, misc;
        const char* sentence;
    } cases[] = {
        {folder, "x", "", "The database server could not be reached. (connection to server on socket"},
        {"127.0.0.1:1", "x", "", "The database server could not be reached. (connection to server at"},
        {"no.such.host.example", "x", "", "The database server could not be reached. (could not translate"},
        {"127.0.0.1:99999", "x", "", "The database server could not be reached. (invalid port number"},
        {socket, "nowhere", "", "has no such catalog. (database \"nowhere\" does not exist)"},
        {socket, "strange", "", "The catalog is not a Tarnwell database. (Code.Code1 is missing)"},
        {socket, "old", "", "The catalog is not a Tarnwell database. (Job.Foreman is missing)"},
        {socket, "postgres", "User ID=nobody;Password=topsecret",
         "did not let you sign in. (role \"nobody\""},
        {socket, "closed", "User ID=clerk", "did not let you sign in. (permission denied for database"},
        {tcp, "postgres", "User ID=clerk;Password=right", "does not offer an encrypted connection; only the"},
        {tcp, "postgres", "User ID=clerk;SSLMode=Yes", "does not offer an encrypted connection"},
        {tcp, "postgres", "User ID=clerk;SSLMode=REQUIRE", "does not offer an encrypted connection"},
        {tcp, "postgres", "User ID=clerk;Password=topsecret;SSLMode=disable",
         "did not let you sign in. (password authentication failed for user \"clerk\")"},
        {tcp, "postgres", "User ID=clerk;SSLMode=disable", "asks for a password, and none is stored"},
    };
    for (const auto& row : cases) {
        store(row.server, row.catalog, ';' + row.misc);
        const ScreenDriver screen(theForm<frmOptions>());
        MessageScript messages{Answer::Ok};
        screen.press(Qt::Key_T, Qt::AltModifier);
        ASSERT_EQ(messages.shown().size(), 1U);
        const MessageRequest& shown = messages.shown().front();
        EXPECT_TRUE(shown.text.contains(row.sentence)) << shown.text.toStdString();
        EXPECT_EQ(shown.icon, MessageIcon::Exclamation);
        theForm<frmOptions>().Unload();

        const QString start = shownAtTheStart();
        EXPECT_TRUE(start.startsWith("Error # -2147")) << start.toStdString();
        EXPECT_EQ(start.count(shown.text), 2) << start.toStdString();
        EXPECT_FALSE(start.contains("topsecret"));
    }
}

TEST_F(ServerChoice, ATestSaysWhatTheDatabaseHoldsAndSavesNothing) {
    const QString socket = folder + ':' + port;
    const std::pair<const char*, const char*> cases[] = {
        {"", "Tarnwell database found.\n\n0 builders\n0 jobs\n0 payments"},
        {"User ID=reader", "Tarnwell database found, but you may only read it.\n\n0 builders\n0 jobs"},
        {"User ID=clerk", "Permission denied"},
    };
    for (const auto& [misc, text] : cases) {
        store("elsewhere", "x", QStringLiteral(";") + misc);
        const QByteArray before = settingsText();
        const ScreenDriver screen(theForm<frmOptions>());
        screen.retype("txtServer", socket);
        screen.retype("txtCatalog", ours);
        MessageScript messages{Answer::Ok};
        screen.click("cmdTest");
        ASSERT_EQ(messages.shown().size(), 1U);
        EXPECT_TRUE(messages.shown()[0].text.startsWith(text)) << messages.shown()[0].text.toStdString();
        EXPECT_EQ(messages.shown()[0].icon == MessageIcon::Information, *misc == '\0');
        EXPECT_EQ(settingsText(), before);
        EXPECT_EQ(screen.focusedName(), "cmdTest");
        theForm<frmOptions>().Unload();
    }
}

TEST_F(ServerChoice, AFirstStartMayBeginWithACatalog) {
    ReadSettings(home.filePath("Tarnwell"));
    MessageScript messages{Answer::Ok};
    whenShown([](const ScreenDriver& form) {
        form.click("optChoice(5)");
        form.retype("txtServer", folder + ':' + port);
        form.retype("txtCatalog", ours);
        form.press(Qt::Key_E, Qt::AltModifier);
        form.press(Qt::Key_S, Qt::AltModifier);
    });
    EXPECT_TRUE(openDatabaseAtStart(nullptr));
    EXPECT_TRUE(messages.shown().front().text.startsWith("Tarnwell database found."));
    EXPECT_EQ(readDatabaseSettings().catalog, ours);
    DataEnvironment::close();
}

TEST_F(ServerChoice, ATestOfASilentServerCanBeLeft) {
    const SilentPort silent;
    store("127.0.0.1:" + silent.number(), "x", {});
    auto& form = theForm<frmOptions>();
    const ScreenDriver screen(form);
    MessageScript none;
    for (const bool byCross : {false, true}) {
        QTimer::singleShot(0, &form, [&] {
            EXPECT_FALSE(screen.find("cmdOK").isEnabled());
            EXPECT_FALSE(screen.find("txtServer").isEnabled());
            if (byCross)
                form.close();
            else
                screen.press(Qt::Key_Escape);
        });
        screen.click("cmdTest");
        EXPECT_EQ(form.statusText(), "Test cancelled");
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(screen.find("txtServer").isEnabled());
        EXPECT_FALSE(screen.find("txtFilePath").isEnabled());
    }
}

} // namespace tarnwell::test
