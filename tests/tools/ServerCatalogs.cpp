#include "ServerCatalogs.h"

#include "support/TemporaryDatabase.h"
#include "support/TestServer.h"

#include <QCoreApplication>
#include <QFile>

namespace tarnwell::test {

namespace {

constexpr const char* catalogNames[] = {"first", "second", "foreign"};
constexpr const char* userNames[] = {"clerk", "other"};

} // namespace

ServerCatalogs::ServerCatalogs()
    : m_prefix(QStringLiteral("Tool %1 ").arg(QCoreApplication::applicationPid())) {}

ServerCatalogs::~ServerCatalogs() {
    dropAll();
}

void ServerCatalogs::dropAll() const {
    for (const char* name : catalogNames) {
        runOnServer(
            "postgres",
            QStringLiteral("DROP DATABASE IF EXISTS \"%1\" WITH (FORCE)").arg(catalog(name)).toUtf8());
        for (const char* group : {"owner", "users"})
            runOnServer("postgres",
                        QStringLiteral("DROP ROLE IF EXISTS \"%1_%2\"").arg(catalog(name), group).toUtf8());
    }
    for (const char* name : userNames)
        runOnServer("postgres", QStringLiteral("DROP ROLE IF EXISTS \"%1\"").arg(catalog(name)).toUtf8());
}

QString ServerCatalogs::catalog(const char* name) const {
    return m_prefix + QLatin1String(name);
}

QString ServerCatalogs::address(const char* name, const char* user) const {
    const QString signIn = *user == '\0' ? QString() : catalog(user).replace(' ', QLatin1String("%20")) + '@';
    return QStringLiteral("postgresql://%1/%2?host=%3").arg(signIn, catalog(name), testServer());
}

QString ServerCatalogs::file(const char* name) const {
    return m_folder.filePath(QLatin1String(name));
}

QString ServerCatalogs::newUser(const char* name) const {
    runOnServer("postgres", QStringLiteral("CREATE ROLE \"%1\" LOGIN").arg(catalog(name)).toUtf8());
    return catalog(name);
}

void ServerCatalogs::run(const QStringList& arguments) const {
    const ToolResult result = runToolWith(arguments);
    EXPECT_EQ(result.code, 0) << arguments.join(' ').toStdString() << ": " << result.out.toStdString()
                              << result.err.toStdString();
}

std::string ServerCatalogs::complaint(const QStringList& arguments) const {
    const ToolResult result = runToolWith(arguments);
    EXPECT_EQ(result.code, 1) << arguments.join(' ').toStdString() << ": " << result.out.toStdString();
    EXPECT_EQ(result.err.count('\n'), 1) << result.err.toStdString();
    return result.err.toStdString();
}

QString ServerCatalogs::rowsOf(const QString& database) const {
    const QString copy = file("rows.mdb");
    run({"backup", database, copy, "--overwrite"});
    return dump(copy);
}

void ServerCatalogs::makeStrangeFile(const char* name) const {
    run({"sample", file(name)});
    Connection connection;
    connection.setConnectionString(connectionStringFor(file(name)));
    connection.Open();
    const QString longText = QString("Größe 'ж' \\ \n").repeated(8'000);
    connection.Execute("UPDATE JobTaskEmployee SET Note='" + QString(longText).replace('\'', "''") +
                       "' WHERE JobTaskEmployee=2");
    connection.Execute(
        "UPDATE JobTaskEmployee SET Price=1e308, Completed=#01/01/1900# WHERE JobTaskEmployee=3");
    connection.Execute("UPDATE JobTaskEmployee SET Price=0.1, Note='' WHERE JobTaskEmployee=4");
    connection.Execute(
        "UPDATE Employee SET Information=NULL, LastName='', Type='FOREMAN' WHERE EmployeeKey=1");
    connection.Execute("UPDATE Employee SET DateofHire=#12/31/9999# WHERE EmployeeKey=2");
    connection.Execute("DELETE FROM JobTaskEmployee WHERE JobTaskEmployee>5 AND JobTaskEmployee<9");
    // The greatest key that was ever given out belongs to nobody.
    connection.Execute("INSERT INTO EmployeeLog (LogKey, EmployeeKey) VALUES (70000, 1)");
    connection.Execute("DELETE FROM EmployeeLog WHERE LogKey=70000");
}

} // namespace tarnwell::test
