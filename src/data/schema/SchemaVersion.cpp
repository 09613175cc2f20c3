#include "data/schema/SchemaVersion.h"

#include "data/RunTimeError.h"
#include "data/schema/ProgramVersion.h"
#include "data/schema/Quoted.h"
#include "data/schema/SchemaTables.h"

#include <algorithm>
#include <array>

namespace tarnwell::schema {

namespace {

struct Addition {
    int version;
    const char* table;
};

/// What came after the first version.
constexpr std::array additions{Addition{2, "SchemaVersion"}};

int versionOf(const Table& table) {
    const auto found = std::ranges::find_if(
        additions, [&](const Addition& addition) { return table.name == QLatin1String(addition.table); });
    return found == additions.end() ? firstVersion : found->version;
}

QString programText() {
    return QString::fromLatin1(programVersion);
}

} // namespace

Stamp currentStamp() {
    return {currentVersion, programText()};
}

const Table& versionTable() {
    static const Table table = detail::makeVersionTable();
    return table;
}

QByteArray readStamps() {
    const std::vector<Column>& columns = versionTable().columns;
    const QByteArray version = data::quoted(columns[1].name);
    return "SELECT " + version + ", " + data::quoted(columns[2].name) + " FROM " +
           data::quoted(versionTable().name) + " ORDER BY " + version + " DESC";
}

QByteArray insertStamp() {
    const std::vector<Column>& columns = versionTable().columns;
    return "INSERT INTO " + data::quoted(versionTable().name) + " (" + data::quoted(columns[1].name) + ", " +
           data::quoted(columns[2].name) + ") VALUES (?, ?)";
}

std::vector<const Table*> tablesSince(int version) {
    std::vector<const Table*> result;
    const auto add = [&](const Table& table) {
        if (versionOf(table) > version)
            result.push_back(&table);
    };
    std::ranges::for_each(tables(), add);
    add(versionTable());
    return result;
}

void requireKnown(const Stamp& stamp, const QString& source, const QString& place) {
    if (stamp.version <= currentVersion)
        return;
    throw RunTimeError(
        makeError(Failure::DatabaseForeign).number(), source,
        QStringLiteral("The database was made by a later version of Tarnwell: its tables have version %1, "
                       "from Tarnwell %2. This is Tarnwell %3, which knows them up to version %4. Install "
                       "Tarnwell %2 or a later one on this computer, or open another database. (%5)")
            .arg(QString::number(stamp.version), stamp.program, programText(),
                 QString::number(currentVersion), place),
        Failure::DatabaseForeign);
}

void refuseUpgrade(const QString& source, const QString& place) {
    throw RunTimeError(
        makeError(Failure::PermissionDenied).number(), source,
        QStringLiteral("The database was made by an earlier version of Tarnwell and has to be brought up to "
                       "date, but you may not change its tables. Ask who looks after it to start this "
                       "version of Tarnwell once, or to run tarnwell-db migrate. (%1)")
            .arg(place),
        Failure::PermissionDenied);
}

} // namespace tarnwell::schema
