#include "data/file/DatabaseFigures.h"

#include "data/RunTimeError.h"
#include "data/recordset/Connection.h"
#include "data/sqlite/OpenDatabase.h"

namespace tarnwell {

namespace {

DatabaseFigures figuresOf(const data::SqliteDatabase& handle) {
    data::SqliteStatement row =
        handle.prepare("SELECT count(*), max(\"Completed\") FROM \"JobTaskEmployee\"");
    DatabaseFigures figures;
    if (!row.step())
        return figures;
    figures.payments = row.integerAt(0);
    constexpr qsizetype dayLength = 10; // of "2026-11-25 00:00:00"
    if (const QDate day = QDate::fromString(row.textAt(1).left(dayLength), Qt::ISODate); day.isValid())
        figures.lastPayment = day;
    return figures;
}

} // namespace

DatabaseFigures readFigures(const QString& path, const GoesOn& goesOn) {
    const data::SqliteDatabase handle = data::openDatabaseFile(path, usualBusyTimeout);
    const data::SqliteWatch watch(handle, goesOn);
    try {
        return figuresOf(handle);
    } catch (const RunTimeError& error) {
        if (!handle.foundDamage() && !error.is(Failure::NoSuchTable) && !error.is(Failure::NoSuchColumn))
            throw;
        raise(Failure::DatabaseForeign, path);
    }
}

} // namespace tarnwell
