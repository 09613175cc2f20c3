#pragma once

#include "reports/preview/PreviewDocument.h"

#include <QBasicTimer>
#include <QObject>

#include <vector>

namespace tarnwell {

/// Looks for a text on the pages of a report, a moment's worth of pages at a time, so that typing and
/// scrolling go on in a report of 70,000 pages. A report of up to 40 pages is searched at once.
class PageFinder : public QObject {
    Q_OBJECT

public:
    /// `pages` outlives the finder.
    explicit PageFinder(const PreviewDocument& pages) : m_pages(pages) {}

    /// Begins anew at the page `from`, goes to the last page and then from the first one to `from`. An empty
    /// text ends the search. `progressed` tells of everything behind the first moment.
    void start(const PageSearch& search, int from);
    /// More hits may come.
    [[nodiscard]] bool isSearching() const { return m_timer.isActive(); }
    /// Why the search ended before its end; empty: it did not.
    [[nodiscard]] const QString& error() const { return m_error; }

    /// Hits that are known by now, in the order of their pages: counted from 0.
    [[nodiscard]] int hitCount() const { return static_cast<int>(m_hits.size()); }
    [[nodiscard]] int pageOf(int hit) const { return m_hits.at(static_cast<std::size_t>(hit)); }
    /// The first hit on that page or behind it; `hitCount` when there is none.
    [[nodiscard]] int firstHitFrom(int page) const;

Q_SIGNALS:
    void progressed();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void searchForAMoment();
    void searchPage(int page);

    const PreviewDocument& m_pages;
    PageSearch m_search;
    int m_from = 1;
    int m_searched = 0;        ///< Pages, from `m_from` on.
    std::vector<int> m_hits;   ///< The page of each hit.
    std::size_t m_wrapped = 0; ///< Hits on pages before `m_from`.
    QString m_error;
    QBasicTimer m_timer;
};

} // namespace tarnwell
