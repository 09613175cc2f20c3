#include "data/odbc/CatalogRows.h"

#include "data/odbc/OdbcError.h"
#include "data/odbc/OdbcStatement.h"
#include "data/odbc/RowBlock.h"

#include <algorithm>

namespace tarnwell::data {

namespace {

int callUnwatched(const std::function<int()>& call, const std::function<void()>& /*cancel*/) {
    return call();
}

} // namespace

std::vector<QStringList> rowsOf(const std::shared_ptr<OdbcConnection>& connection, const QByteArray& sql) {
    OdbcStatement statement(connection, sql);
    statement.run(callUnwatched);
    std::vector<QStringList> rows;
    TextArena texts;
    while (statement.rows().next()) {
        QStringList& row = rows.emplace_back();
        for (int i = 0; i < statement.rows().columnCount(); ++i)
            row << valueOf(statement.rows().cell(i, {}, texts)).toText();
    }
    return rows;
}

void runOne(const std::shared_ptr<OdbcConnection>& connection, const QByteArray& sql,
            std::span<const Value> values) {
    OdbcStatement statement(connection, sql);
    statement.bind(values);
    statement.run(callUnwatched);
}

bool hasRow(const std::vector<QStringList>& rows, const QStringList& row) {
    return std::ranges::find(rows, row) != rows.end();
}

schema::Stamp knownStampOf(const std::shared_ptr<OdbcConnection>& connection,
                           const std::vector<QStringList>& columns, const QString& catalog) {
    const schema::Table& table = schema::versionTable();
    if (!hasRow(columns, {table.name, table.keyColumn}))
        return {};
    const auto stamps = rowsOf(connection, schema::readStamps());
    if (stamps.empty())
        raiseServerFailure(Failure::DatabaseForeign, connection->server(),
                           QStringLiteral("The catalog is not a Tarnwell database."),
                           QStringLiteral("%1 is empty").arg(table.name));
    const schema::Stamp stamp{stamps.front()[0].toInt(), stamps.front()[1]};
    schema::requireKnown(stamp, connection->server(), catalog);
    return stamp;
}

} // namespace tarnwell::data
