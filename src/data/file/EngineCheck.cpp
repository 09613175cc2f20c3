#include "data/file/EngineCheck.h"

#include "data/RunTimeError.h"
#include "data/schema/Schema.h"

#include <algorithm>

namespace tarnwell::data {

namespace {

struct CheckLines {
    QStringList lines;
    QString ending; ///< The error that ended the check early; what it found before counts all the same.
};

CheckLines linesOf(const SqliteDatabase& handle, const QByteArray& check) {
    CheckLines result;
    try {
        SqliteStatement statement = handle.prepare(check);
        while (statement.step())
            result.lines << statement.textAt(0).split(u'\n', Qt::SkipEmptyParts);
    } catch (const RunTimeError& error) {
        if (!handle.foundDamage())
            throw;
        result.ending = error.description();
    }
    result.lines.removeIf([](const QString& line) {
        return line == QLatin1String("ok") || line.startsWith(QLatin1String("*** in database"));
    });
    return result;
}

bool isConstraint(const QString& line) {
    return line.startsWith(QLatin1String("CHECK constraint")) || line.startsWith(QLatin1String("NULL value"));
}

/// "JobLotTask: Page 102: ..." for each line about that table.
QStringList damageOf(const SqliteDatabase& handle, const QString& table, int shown) {
    CheckLines found = linesOf(handle, "PRAGMA integrity_check(" + quoted(table) + ')');
    found.lines.removeIf(isConstraint);
    if (found.lines.isEmpty() && !found.ending.isEmpty())
        found.lines << found.ending;
    QStringList damage;
    for (const QString& line : found.lines.first(std::min<qsizetype>(found.lines.size(), shown)))
        damage << QStringLiteral("%1: %2").arg(table, line);
    return damage;
}

/// The check of the whole file names pages, not tables, and ends at the first row that it can't read.
QStringList damageByTable(const SqliteDatabase& handle, const CheckLines& whole, int shown) {
    QStringList damage;
    for (const schema::Table& table : schema::tables())
        damage << damageOf(handle, table.name, shown);
    for (const QString& line : whole.lines) {
        const QString named = QStringLiteral(": ") + line;
        if (!isConstraint(line) &&
            std::ranges::none_of(damage, [&](const QString& known) { return known.endsWith(named); }))
            damage << line;
    }
    return damage.isEmpty() ? QStringList(whole.ending) : damage;
}

} // namespace

EngineReport askEngine(const SqliteDatabase& handle, int shown) {
    const CheckLines whole = linesOf(handle, "PRAGMA integrity_check(" + QByteArray::number(shown) + ')');
    EngineReport report;
    std::ranges::copy_if(whole.lines, std::back_inserter(report.constraints), isConstraint);
    if (report.constraints.size() != whole.lines.size() || !whole.ending.isEmpty())
        report.damage = damageByTable(handle, whole, shown);
    return report;
}

} // namespace tarnwell::data
