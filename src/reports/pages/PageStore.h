#pragma once

#include "reports/pages/PageItems.h"
#include "reports/pages/PageSpool.h"
#include "reports/pages/ReportFile.h"

#include <functional>
#include <memory>
#include <vector>

namespace tarnwell {

/// Called before each page with how many are done; false ends the work.
using FollowPages = std::function<bool(qint64 pagesDone, qint64 pages)>;

/// The report database: the pages of the runs that are on somebody's screen.
///
/// A run is drawn beside the file and goes into it in one transaction, so a long run keeps nobody waiting and
/// a run that was cut short leaves nothing. Several programs may share the file: each clears its own runs,
/// and whoever opens it alone also what was left behind.
class PageStore {
public:
    /// Makes the file where it is missing. Raises what `openReportFile` raises.
    explicit PageStore(const QString& path);
    PageStore(const QString& path, data::Journal journal);
    /// Clears the runs of this store.
    ~PageStore();
    PageStore(const PageStore&) = delete;
    PageStore& operator=(const PageStore&) = delete;

    /// Clears this store's run before and starts an empty one. Keys are never given out twice. Raises
    /// UnusableReportFile for damage that shows only now.
    [[nodiscard]] qint64 newReport();
    /// Adds to the run of that key, which must be the last one and not finished; raises NotAllowed.
    void add(qint64 reportKey, const PageText& text);
    void add(qint64 reportKey, const PageLine& line);
    /// Brings the run into the file, in one transaction; nothing can be added behind it. Does nothing for a
    /// finished run. A report of 70,000 pages takes seconds: when `follow`, called for each page, returns
    /// false, everything is rolled back, other programs can write again, this returns false and may be called
    /// again. Raises DatabaseLocked, and DatabaseFailure for a full disk.
    bool finish(qint64 reportKey, const FollowPages& follow = {});

    /// The highest page of a finished run, 0 for a run without pages; pages below it may be empty.
    [[nodiscard]] qint64 pageCount(qint64 reportKey) const;
    /// An empty page when nothing was drawn on it.
    [[nodiscard]] PageItems page(qint64 reportKey, qint64 number) const;

private:
    /// The waiting items of the page, to which its next one is added.
    ItemBytes& itemsOf(qint64 reportKey, qint64 page);
    void putAside();
    [[nodiscard]] bool moveIn(const FollowPages& follow);
    void clearRun();

    QString m_path;
    ReportFile m_file;
    qint64 m_run = 0;                   ///< Key of the last run; 0: none.
    std::unique_ptr<PageSpool> m_drawn; ///< Of the last run while it can still be drawn on.
    qint64 m_page = 0;                  ///< Whose items wait in `m_items`.
    ItemBytes m_items;
};

/// The finished pages of one run, for whoever shows or prints them. Must not outlive the store.
class ReportPages {
public:
    ReportPages(const PageStore& store, qint64 reportKey)
        : m_store(store), m_reportKey(reportKey), m_pageCount(store.pageCount(reportKey)) {}

    /// Pages count from 1 to this; 0 for a report without pages.
    [[nodiscard]] qint64 pageCount() const { return m_pageCount; }
    /// Read from the file at each call; an empty page when nothing was drawn on it.
    [[nodiscard]] PageItems page(qint64 number) const { return m_store.page(m_reportKey, number); }
    /// Every page of a report lies the same way.
    [[nodiscard]] Orientation orientation() const { return page(1).orientation; }
    /// The places in `PageItems::texts` of those that contain `text`, the number of pages behind " of"
    /// included; none for an empty text. Unless case counts, accents don't matter either.
    [[nodiscard]] std::vector<std::size_t>
    findOnPage(const QString& text, qint64 page, Qt::CaseSensitivity letters = Qt::CaseInsensitive) const;

private:
    const PageStore& m_store;
    qint64 m_reportKey;
    qint64 m_pageCount;
};

} // namespace tarnwell
