#include "DatabaseTool.h"

#include "CommandLine.h"
#include "CopyCommands.h"
#include "data/RunTimeError.h"
#include "data/backup/DatabaseTarget.h"
#include "data/check/CatalogCheck.h"
#include "data/file/DatabaseCheck.h"
#include "data/recordset/Connection.h"
#include "data/recordset/EngineFactory.h"
#include "data/schema/SchemaVersion.h"
#include "data/transfer/NewRows.h"
#include "data/upgrade/DatabaseUpgrade.h"
#include "sample/SampleDatabase.h"

#include <QFileInfo>

#include <optional>

namespace tarnwell::tool {

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int misuse = 2;

/// Whether two databases are one: a file under two names, or a catalog of one address.
bool isSame(const DatabaseAddress& one, const DatabaseAddress& other) {
    if (one.isFile() && other.isFile())
        return QFileInfo::exists(other.path) &&
               QFileInfo(one.path).canonicalFilePath() == QFileInfo(other.path).canonicalFilePath();
    const auto differs = [&](const char* key) {
        const QLatin1String name(key);
        return connectionValue(one.connectionString, name) != connectionValue(other.connectionString, name);
    };
    return !differs("Provider") && !differs("Data Source") && !differs("Initial Catalog");
}

/// What stands in the way of writing the last of the databases; empty when nothing does.
QString obstacle(const Request& request) {
    const DatabaseAddress& target = request.databases.back();
    if (request.command == Command::Check)
        return {};
    if (request.databases.size() > 1 && isSame(request.databases.front(), target))
        return QStringLiteral("%1 cannot be copied to itself").arg(request.databases.front().shown);
    const bool fills = request.command == Command::Copy || request.overwrite || !target.isFile();
    if (fills || !QFileInfo::exists(target.path))
        return {};
    return request.command == Command::Migrate
               ? QStringLiteral("%1 exists; the copy needs a name of its own").arg(target.shown)
               : QStringLiteral("%1 exists; --overwrite replaces it").arg(target.shown);
}

ExistingFile existingFile(const Request& request) {
    return request.overwrite ? ExistingFile::Replace : ExistingFile::Keep;
}

/// Who wants to let in more users later makes nothing.
bool isThereAlready(const Request& request) {
    const DatabaseAddress& database = request.databases.front();
    return !request.users.isEmpty() &&
           data::openServerCatalog(database.connectionString)->state() == data::ServerCatalog::State::Ours;
}

int create(const Request& request, Output& output) {
    const DatabaseAddress& database = request.databases.front();
    if (!isThereAlready(request)) {
        newTarget(database, existingFile(request))->finish();
        output.out << "Made " << database.shown << ".\n";
    }
    for (const QString& user : request.users) {
        data::openServerCatalog(database.connectionString)->admit(user);
        output.out << user << " may work with it.\n";
    }
    return success;
}

/// Only the large sample takes long enough to be watched.
std::function<void(int)> progressLine(const sample::Scale& scale, Output& output) {
    if (!output.showsProgress || !scale.exactTotals)
        return [](int) {};
    return [&output, jobs = scale.jobs](int done) {
        if (done % 1000 != 0)
            return;
        output.err << "\r" << done << " of " << jobs << " jobs" << (done == jobs ? "\n" : "");
        output.err.flush();
    };
}

/// Benchmarks and people look these places up by name.
void describeLandmarks(Output& output) {
    output.out << "What stands out in it:\n";
    for (const sample::Landmark& mark : sample::landmarks()) {
        output.out << "  " << (mark.jobName != nullptr ? "job " : "") << mark.where;
        if (mark.jobName != nullptr)
            output.out << " (" << mark.jobName << ")";
        output.out << ": " << mark.what << "\n";
    }
}

void requireUnused(Connection& connection, const DatabaseAddress& database) {
    const QString used = data::firstUsedTable(connection.engine());
    if (!used.isEmpty())
        refuse(QStringLiteral("%1 is not empty: there are rows in %2").arg(database.shown, used));
}

int makeSample(const Request& request, Output& output) {
    const DatabaseAddress& database = request.databases.front();
    const std::optional<sample::Scale> found = sample::findScale(request.scale);
    if (!found)
        return misuse;
    const sample::Scale& scale = *found;
    const auto target =
        database.isFile() ? newTarget(database, existingFile(request)) : targetToFill(database);
    Connection connection;
    connection.setConnectionString(target->connectionString());
    connection.Open();
    requireUnused(connection, database);
    sample::writeSample(connection, scale, request.seed, progressLine(scale, output));
    connection.Close();
    target->updateStatistics();
    target->finish();
    output.out << "Made " << database.shown << ": " << scale.use << ".\n";
    if (scale.exactTotals)
        describeLandmarks(output);
    return success;
}

int check(const Request& request, Output& output) {
    const DatabaseAddress& database = request.databases.front();
    const CheckResult result =
        database.isFile() ? checkDatabase(database.path) : checkCatalog(database.connectionString);
    for (const QString& problem : result.engineProblems)
        output.out << problem << "\n";
    for (const FindingGroup& group : result.groups) {
        output.out << group.rule << ": " << group.count << "\n";
        for (const Finding& finding : group.first)
            output.out << "  " << finding.text() << "\n";
        if (group.count > static_cast<qint64>(group.first.size()))
            output.out << "  and " << group.count - static_cast<qint64>(group.first.size()) << " more\n";
    }
    if (result.schemaVersion != schema::currentVersion)
        output.out
            << "An earlier version of Tarnwell made it. The next start, or tarnwell-db migrate, brings it up "
               "to date.\n";
    if (result.isClean())
        output.out << database.shown << " is sound.\n";
    else
        output.out << database.shown << " has " << result.count()
                   << (result.count() == 1 ? " fault.\n" : " faults.\n");
    return result.isClean() ? success : failure;
}

int migrate(const Request& request, Output& output) {
    const DatabaseAddress& database = request.databases.front();
    const DatabaseAddress& backup = request.databases.back();
    const int from = upgradeDatabase(database.connectionString, backup.path);
    if (from == schema::currentVersion) {
        output.out << database.shown << " is up to date.\n";
        return success;
    }
    output.out << "Saved " << database.shown << " as " << backup.shown << ".\nBrought it from version "
               << from << " of the tables to version " << schema::currentVersion << ".\n";
    return success;
}

int carryOut(const Request& request, Output& output) {
    switch (request.command) {
    case Command::Create:
        return create(request, output);
    case Command::Sample:
        return makeSample(request, output);
    case Command::Check:
        return check(request, output);
    case Command::Copy:
        return copy(request, output);
    case Command::Backup:
        return backup(request, output);
    case Command::Restore:
        return restore(request, output);
    case Command::Migrate:
        return migrate(request, output);
    }
    return misuse;
}

} // namespace

int runTool(const QStringList& arguments, Output output) {
    const auto parsed = parseArguments(arguments);
    if (const auto* notice = std::get_if<Notice>(&parsed)) {
        (notice->isError ? output.err : output.out) << notice->text;
        return notice->isError ? misuse : success;
    }
    const auto& request = std::get<Request>(parsed);
    if (const QString fault = obstacle(request); !fault.isEmpty()) {
        output.err << "tarnwell-db: " << fault << "\n";
        return failure;
    }
    try {
        return carryOut(request, output);
    } catch (const RunTimeError& error) {
        // Over a line of progress that did not come to its end.
        output.err << (output.showsProgress ? "\r" : "")
                   << "tarnwell-db: " << error.description().simplified() << "\n";
        return failure;
    }
}

} // namespace tarnwell::tool
