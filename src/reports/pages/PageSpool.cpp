#include "reports/pages/PageSpool.h"

namespace tarnwell {

namespace {

using data::SqliteDatabase;
using data::SqliteStatement;

/// A commit writes the last part's place again, a failure takes what was not committed.
constexpr qint64 partsBetweenCommits = 64;

SqliteDatabase openOwnFile() {
    SqliteDatabase handle({}, SqliteDatabase::Access::Create);
    // It ends with the program, so there is nothing to come back to.
    for (const char* setting : {"page_size=16384", "cache_size=-8000", "journal_mode=MEMORY",
                                "synchronous=OFF", "locking_mode=EXCLUSIVE"})
        handle.run(QByteArray("PRAGMA ") + setting);
    handle.run("CREATE TABLE Drawn (Part INTEGER PRIMARY KEY, Page INTEGER NOT NULL, Items BLOB NOT NULL)");
    handle.run("BEGIN");
    return handle;
}

} // namespace

PageSpool::PageSpool()
    : m_handle(openOwnFile()), m_add(m_handle.prepare("INSERT INTO Drawn VALUES (?, ?, ?)")) {}

void PageSpool::add(qint64 page, QByteArrayView items) {
    m_add.bind(1, m_count + 1);
    m_add.bind(2, page);
    m_add.bindBytes(3, items);
    m_add.run();
    ++m_count;
    if (m_count % partsBetweenCommits == 0) {
        m_handle.run("COMMIT");
        m_handle.run("BEGIN");
    }
}

bool PageSpool::handOut(const std::function<bool(const Part&)>& take) const {
    SqliteStatement parts = m_handle.prepare("SELECT Part, Page, Items FROM Drawn ORDER BY Part");
    while (parts.step())
        if (!take({parts.integerAt(0), parts.integerAt(1), parts.bytesAt(2)}))
            return false;
    return true;
}

} // namespace tarnwell
