#include "DatabaseTool.h"

#include "CommandLine.h"
#include "SampleDatabase.h"
#include "data/RunTimeError.h"
#include "data/file/DatabaseCheck.h"
#include "data/file/DatabaseFile.h"
#include "data/file/FileReplacement.h"
#include "data/recordset/Connection.h"

#include <QFileInfo>

#include <optional>

namespace tarnwell::tool {

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int misuse = 2;

/// What stands in the way of writing the last of the files; empty when nothing does.
QString obstacle(const Request& request) {
    const QFileInfo target(request.files.back());
    if (request.command == Command::Check || !target.exists())
        return {};
    if (request.files.size() > 1 &&
        target.canonicalFilePath() == QFileInfo(request.files.front()).canonicalFilePath())
        return QStringLiteral("%1 cannot be copied to itself").arg(request.files.front());
    return request.overwrite ? QString()
                             : QStringLiteral("%1 exists; --overwrite replaces it").arg(request.files.back());
}

/// A database in the making beside the name that was asked for, where an interrupted run leaves nothing.
class NewDatabase {
public:
    explicit NewDatabase(const Request& request)
        : m_target(request.files.front()), m_overwrite(request.overwrite), m_file(m_target) {
        createDatabase(path());
    }

    [[nodiscard]] const QString& path() const { return m_file.temporaryPath(); }
    /// The database must be closed.
    void moveIntoPlace() {
        using data::FileReplacement;
        m_file.moveIntoPlace(m_overwrite ? FileReplacement::Existing::Replace
                                         : FileReplacement::Existing::Keep);
    }

private:
    QString m_target;
    bool m_overwrite;
    data::FileReplacement m_file;
};

int create(const Request& request, Output& output) {
    NewDatabase(request).moveIntoPlace();
    output.out << "Made " << request.files.front() << ".\n";
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

int makeSample(const Request& request, Output& output) {
    const std::optional<sample::Scale> found = sample::findScale(request.scale);
    if (!found)
        return misuse;
    const sample::Scale& scale = *found;
    NewDatabase database(request);
    Connection connection;
    connection.setConnectionString(fileConnectionString(database.path()));
    connection.Open();
    sample::writeSample(connection, scale, request.seed, progressLine(scale, output));
    connection.Close();
    updateStatistics(database.path());
    database.moveIntoPlace();
    output.out << "Made " << request.files.front() << ": " << scale.use << ".\n";
    if (scale.exactTotals)
        describeLandmarks(output);
    return success;
}

int check(const Request& request, Output& output) {
    const QString& file = request.files.front();
    const CheckResult result = checkDatabase(file);
    for (const QString& problem : result.engineProblems)
        output.out << problem << "\n";
    for (const FindingGroup& group : result.groups) {
        output.out << group.rule << ": " << group.count << "\n";
        for (const Finding& finding : group.first)
            output.out << "  " << finding.text() << "\n";
        if (group.count > static_cast<qint64>(group.first.size()))
            output.out << "  and " << group.count - static_cast<qint64>(group.first.size()) << " more\n";
    }
    if (result.isClean())
        output.out << file << " is sound.\n";
    else
        output.out << file << " has " << result.count() << (result.count() == 1 ? " fault.\n" : " faults.\n");
    return result.isClean() ? success : failure;
}

int backup(const Request& request, Output& output) {
    backupDatabase(request.files.front(), request.files.back(), request.overwrite);
    output.out << "Saved " << request.files.front() << " as " << request.files.back() << ".\n";
    return success;
}

/// A backup is copied and not moved, and examined before anything is touched.
int restore(const Request& request, Output& output) {
    const QString& saved = request.files.front();
    const QString& target = request.files.back();
    if (const QStringList problems = integrityProblems(saved); !problems.isEmpty())
        raise(Failure::DatabaseForeign, QStringLiteral("%1 (%2)").arg(saved, problems.front()));
    backupDatabase(saved, target, request.overwrite);
    output.out << "Restored " << target << " from " << saved << ".\n";
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
    case Command::Backup:
        return backup(request, output);
    case Command::Restore:
        return restore(request, output);
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
        output.err << "tarnwell-db: " << error.description().simplified() << "\n";
        return failure;
    }
}

} // namespace tarnwell::tool
