#include "data/transfer/DatabaseCopy.h"

#include "data/engine/Engine.h"
#include "data/schema/Quoted.h"
#include "data/schema/SchemaVersion.h"
#include "data/sql/RowStatements.h"
#include "data/transfer/NewRows.h"
#include "data/transfer/TableRows.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace tarnwell {

namespace {

using data::Engine;
using data::TableRows;
using schema::Table;

/// Every server takes so many in one statement.
constexpr std::size_t mostParameters = 2000;

class ReadScope {
public:
    explicit ReadScope(Engine& engine) : m_engine(engine) { engine.beginReading(); }
    ~ReadScope() { m_engine.abandonTransaction(); }
    ReadScope(const ReadScope&) = delete;
    ReadScope& operator=(const ReadScope&) = delete;

private:
    Engine& m_engine;
};

class ProgressCount {
public:
    ProgressCount(Engine& source, const std::function<void(const CopyProgress&)>& report) : m_report(report) {
        for (const Table& table : schema::tables())
            m_progress.all += 2 * rowsOf(source, table);
    }
    void add(const Table& table, std::size_t rows) {
        m_progress.table = table.name;
        m_progress.done += static_cast<qint64>(rows);
        m_report(m_progress);
    }

private:
    static qint64 rowsOf(Engine& engine, const Table& table) {
        const auto count = engine.open("SELECT count(*) FROM " + data::quoted(table.name), {});
        std::array<data::Cell, 1> cell{};
        data::TextArena texts;
        if (!count->next())
            return 0;
        count->read(cell, std::array{std::optional(schema::ColumnType::Long)}, texts);
        return cell.front().number;
    }

    const std::function<void(const CopyProgress&)>& m_report;
    CopyProgress m_progress;
};

QString rowName(const Table& table, qint64 key) {
    return QStringLiteral("%1 %2").arg(table.name, QString::number(key));
}

/// Whether a failure lies in the values of a row, so that it is worth looking for that row.
bool isAboutValues(const RunTimeError& error) {
    return error.is(Failure::Constraint) || error.is(Failure::WrongType) || error.is(Failure::DataOverflow);
}

/// Adds rows to a table, as many in one statement as may be.
class TableFiller {
public:
    TableFiller(Engine& engine, const Table& table)
        : m_engine(engine), m_table(table), m_rowsAtOnce(mostParameters / table.columns.size()) {
        m_values.reserve(m_rowsAtOnce * table.columns.size());
    }

    /// True when that wrote the rows added so far.
    bool add(const std::vector<Value>& row) {
        m_values.insert(m_values.end(), row.begin(), row.end());
        if (pending() < m_rowsAtOnce)
            return false;
        write();
        return true;
    }
    void write() {
        if (m_values.empty())
            return;
        try {
            insert(m_values);
        } catch (const RunTimeError& error) {
            if (!isAboutValues(error))
                throw;
            writeOneByOne();
        }
        m_values.clear();
    }

private:
    [[nodiscard]] std::size_t width() const { return m_table.columns.size(); }
    [[nodiscard]] std::size_t pending() const { return m_values.size() / width(); }

    void insert(std::span<const Value> values) {
        std::vector<int> columns(width());
        std::iota(columns.begin(), columns.end(), 0);
        const QByteArray sql = data::insertStatement(m_table, columns, values.size() / width());
        m_engine.insertWithKeys(m_table, sql, values);
    }
    /// Of many rows the engine does not say which one it refuses.
    void writeOneByOne() {
        for (auto rest = std::span<const Value>(m_values); !rest.empty(); rest = rest.subspan(width())) {
            try {
                insert(rest.first(width()));
            } catch (const RunTimeError& error) {
                const QString row = rowName(m_table, rest.front().toLong());
                throw RunTimeError(error.number(), error.source(),
                                   QStringLiteral("%1: %2").arg(row, error.description()), error.failure());
            }
        }
    }

    Engine& m_engine;
    const Table& m_table;
    std::size_t m_rowsAtOnce;
    std::vector<Value> m_values; ///< Of the rows that are not written yet, one row after the other.
};

qint64 copyTable(Engine& source, Engine& target, const Table& table, ProgressCount& progress) {
    TableRows rows(source, table);
    TableFiller filler(target, table);
    qint64 copied = 0;
    std::size_t unreported = 0;
    while (rows.next()) {
        ++copied;
        ++unreported;
        if (filler.add(rows.row()))
            progress.add(table, std::exchange(unreported, 0));
    }
    filler.write();
    progress.add(table, unreported);
    return copied;
}

[[noreturn]] void raiseDifference(const QString& row, const QString& what) {
    raise(Failure::DatabaseFailure, QStringLiteral("%1 %2 after it was copied").arg(row, what));
}

void compareRow(const Table& table, const std::vector<Value>& source, const std::vector<Value>& target) {
    const auto [at, other] = std::ranges::mismatch(source, target);
    if (at == source.end())
        return;
    const auto column = static_cast<std::size_t>(at - source.begin());
    raiseDifference(rowName(table, source.front().toLong()),
                    QStringLiteral("has another %1").arg(table.columns[column].name));
}

void compareTable(Engine& source, Engine& target, const Table& table, ProgressCount& progress) {
    constexpr std::size_t rowsOfReport = 500;
    TableRows wanted(source, table);
    TableRows found(target, table);
    std::size_t unreported = 0;
    while (wanted.next()) {
        if (!found.next() || found.key() != wanted.key())
            raiseDifference(rowName(table, wanted.key()), QStringLiteral("is missing"));
        compareRow(table, wanted.row(), found.row());
        if (++unreported == rowsOfReport)
            progress.add(table, std::exchange(unreported, 0));
    }
    if (found.next())
        raiseDifference(rowName(table, found.key()), QStringLiteral("is too much"));
    progress.add(table, unreported);
}

void requireUpToDate(const Engine& target) {
    if (target.schemaVersion() != schema::currentVersion)
        throw RunTimeError(
            makeError(Failure::NotAllowed).number(), QStringLiteral("Tarnwell"),
            QStringLiteral("The database to be filled was made by an earlier version of Tarnwell; "
                           "tarnwell-db migrate brings it up to date."),
            Failure::NotAllowed);
}

} // namespace

CopyResult copyDatabase(Connection& source, Connection& target,
                        const std::function<void(const CopyProgress&)>& progress) {
    Engine& from = source.engine();
    Engine& to = target.engine();
    requireUpToDate(to);
    const ReadScope reading(from);
    Transaction writing(target);
    CopyResult result{.rows = 0, .usedTable = data::firstUsedTable(to)};
    if (!result.usedTable.isEmpty())
        return result;
    data::removeInitialRows(to);
    ProgressCount count(from, progress);
    for (const Table& table : schema::tables()) // each behind those that its rows refer to
        result.rows += copyTable(from, to, table, count);
    for (const Table& table : schema::tables())
        compareTable(from, to, table, count);
    for (const Table& table : schema::tables())
        to.passKeys(table, from.greatestKey(table));
    writing.commit();
    return result;
}

} // namespace tarnwell
