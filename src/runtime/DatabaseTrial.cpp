#include "runtime/DatabaseTrial.h"

#include "data/recordset/Recordset.h"
#include "data/upgrade/DatabaseUpgrade.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <array>
#include <future>
#include <thread>
#include <vector>

namespace tarnwell {

namespace {

/// By these a user recognises the own database.
struct Figure {
    const char* table;
    const char* one;
    const char* many;
};

constexpr std::array figures{
    Figure{"Contractor", "builder", "builders"},
    Figure{"Job", "job", "jobs"},
    Figure{"JobTaskEmployee", "payment", "payments"},
};

QString counted(Connection& connection, const Figure& figure) {
    const qint64 rows =
        firstValue(connection, QStringLiteral("SELECT COUNT(*) FROM ") + QLatin1String(figure.table))
            .value_or(Value())
            .toLong();
    return QLocale(QLocale::English).toString(rows) + u' ' +
           QLatin1String(rows == 1 ? figure.one : figure.many);
}

/// By a statement that touches no row. Somebody else's lock is no lack of rights.
bool mayWrite(Connection& connection) {
    try {
        const Transaction rolledBack(connection);
        connection.Execute(QStringLiteral("UPDATE Job SET Name='' WHERE JobKey=0"));
    } catch (const RunTimeError& error) {
        if (error.is(Failure::PermissionDenied))
            return false;
        if (!error.is(Failure::DatabaseLocked))
            throw;
    }
    return true;
}

TrialResult look(Connection& connection) {
    QStringList lines;
    for (const Figure& figure : figures)
        lines << counted(connection, figure);
    const bool isUsable = mayWrite(connection);
    QString first = isUsable ? QStringLiteral("Tarnwell database found.")
                             : QStringLiteral("Tarnwell database found, but you may only read it.");
    if (!isUpToDate(connection))
        first += QStringLiteral(
            "\nAn earlier version of Tarnwell made it: the next start saves it and brings it up to "
            "date, if you may change its tables.");
    return {isUsable, first + QStringLiteral("\n\n") + lines.join(u'\n')};
}

/// Connection attempts that nobody waits for any more. They use what the process clears away at its end.
std::vector<std::jthread>& leftBehind() {
    static std::vector<std::jthread> threads;
    return threads;
}

void leaveBehind(std::jthread thread) {
    if (leftBehind().empty())
        qAddPostRoutine([] { leftBehind().clear(); });
    leftBehind().push_back(std::move(thread));
}

} // namespace

TrialResult tryDatabase(const QString& connectionString) {
    try {
        Connection connection;
        connection.setConnectionString(connectionString);
        connection.Open();
        return look(connection);
    } catch (const RunTimeError& error) {
        return {.text = error.description()};
    }
}

std::optional<TrialResult> tryDatabase(const QString& connectionString, const std::function<bool()>& goesOn) {
    constexpr std::chrono::milliseconds betweenQuestions{10};
    std::packaged_task<TrialResult()> task([connectionString] { return tryDatabase(connectionString); });
    std::future<TrialResult> result = task.get_future();
    std::jthread thread(std::move(task));
    while (result.wait_for(betweenQuestions) != std::future_status::ready)
        if (!goesOn()) {
            leaveBehind(std::move(thread));
            return {};
        }
    return result.get();
}

} // namespace tarnwell
