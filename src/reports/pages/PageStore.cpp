#include "reports/pages/PageStore.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "reports/pages/TextSearch.h"

#include <cstdio>
#include <sqlite3.h>

namespace tarnwell {

namespace {

using data::SqliteDatabase;
using data::SqliteStatement;

constexpr qsizetype partSize = 0x40000; ///< Bytes of a page that are kept in memory while it is drawn.

/// A write of many pages, rolled back unless it was committed. The engine's own bookkeeping stays in memory
/// meanwhile: were it written out and changed again, the commit would have to read the whole log.
class LargeWrite {
public:
    explicit LargeWrite(const SqliteDatabase& handle) : m_handle(handle) {
        handle.run("PRAGMA cache_size=-32000");
        handle.run("BEGIN IMMEDIATE");
    }
    ~LargeWrite() {
        if (sqlite3_get_autocommit(m_handle.get()) == 0)
            sqlite3_exec(m_handle.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        sqlite3_exec(m_handle.get(), "PRAGMA cache_size=-2000", nullptr, nullptr, nullptr);
    }
    LargeWrite(const LargeWrite&) = delete;
    LargeWrite& operator=(const LargeWrite&) = delete;
    void commit() const { m_handle.run("COMMIT"); }

private:
    const SqliteDatabase& m_handle;
};

} // namespace

PageStore::PageStore(const QString& path) : m_path(pathOnDisk(path)), m_file(openReportFile(m_path)) {}

PageStore::PageStore(const QString& path, data::Journal journal)
    : m_path(pathOnDisk(path)), m_file(openReportFile(m_path, journal)) {}

PageStore::~PageStore() {
    try {
        clearRun();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The report's pages could not be cleared: %s\n", error.what());
    }
}

qint64 PageStore::newReport() {
    try {
        clearRun();
        m_file.pages.run("INSERT INTO Report DEFAULT VALUES");
    } catch (const RunTimeError& error) {
        raiseForDamage(error, m_path);
        throw;
    }
    m_run = sqlite3_last_insert_rowid(m_file.pages.get());
    m_drawn = std::make_unique<PageSpool>();
    return m_run;
}

void PageStore::add(qint64 reportKey, const PageText& text) {
    itemsOf(reportKey, text.page).add(text);
}

void PageStore::add(qint64 reportKey, const PageLine& line) {
    itemsOf(reportKey, line.page).add(line);
}

bool PageStore::finish(qint64 reportKey, const FollowPages& follow) {
    if (m_drawn == nullptr || reportKey != m_run)
        return true;
    putAside();
    if (!moveIn(follow))
        return false;
    m_drawn.reset();
    return true;
}

bool PageStore::moveIn(const FollowPages& follow) {
    const LargeWrite write(m_file.pages);
    SqliteStatement add =
        m_file.pages.prepare("INSERT INTO Page (ReportKey, Page, Part, Items) VALUES (?, ?, ?, ?)");
    const bool isWhole = m_drawn->handOut([&](const PageSpool::Part& part) {
        add.bind(1, m_run);
        add.bind(2, part.page);
        add.bind(3, part.number);
        add.bindBytes(4, part.items);
        add.run();
        return !follow || follow(part.number, m_drawn->count());
    });
    if (isWhole)
        write.commit();
    return isWhole;
}

qint64 PageStore::pageCount(qint64 reportKey) const {
    SqliteStatement statement = m_file.pages.prepare("SELECT MAX(Page) FROM Page WHERE ReportKey=?");
    statement.bind(1, reportKey);
    return statement.step() ? statement.integerAt(0) : 0;
}

PageItems PageStore::page(qint64 reportKey, qint64 number) const {
    PageItems page;
    SqliteStatement parts =
        m_file.pages.prepare("SELECT Items FROM Page WHERE ReportKey=? AND Page=? ORDER BY Part");
    parts.bind(1, reportKey);
    parts.bind(2, number);
    while (parts.step())
        readItems(parts.bytesAt(0), number, page);
    return page;
}

ItemBytes& PageStore::itemsOf(qint64 reportKey, qint64 page) {
    if (m_drawn == nullptr || reportKey != m_run)
        raise(Failure::NotAllowed);
    if (page != m_page || m_items.bytes().size() > partSize)
        putAside();
    m_page = page;
    return m_items;
}

void PageStore::putAside() {
    if (!m_items.bytes().isEmpty())
        m_drawn->add(m_page, m_items.bytes());
    m_items.clear();
}

void PageStore::clearRun() {
    if (m_run == 0)
        return;
    m_drawn.reset();
    m_items.clear();
    {
        const LargeWrite write(m_file.pages);
        for (const char* table : {"Page", "Report"}) {
            SqliteStatement clear =
                m_file.pages.prepare(QByteArray("DELETE FROM ") + table + " WHERE ReportKey=?");
            clear.bind(1, m_run);
            clear.run();
        }
        write.commit();
    }
    // What another program still reads stays in the log and is copied by whoever clears next.
    (void)sqlite3_wal_checkpoint_v2(m_file.pages.get(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

std::vector<std::size_t> ReportPages::findOnPage(const QString& text, qint64 page,
                                                 Qt::CaseSensitivity letters) const {
    std::vector<std::size_t> hits;
    const TextSearch search(text, letters);
    const PageItems stored = text.isEmpty() ? PageItems() : this->page(page);
    for (std::size_t i = 0; i < stored.texts.size(); ++i)
        if (search.isIn(textOnPage(stored.texts[i], m_pageCount)))
            hits.push_back(i);
    return hits;
}

} // namespace tarnwell
