#include "reports/preview/PageFinder.h"

#include "data/RunTimeError.h"
#include "runtime/EventGuard.h"

#include <QDeadlineTimer>
#include <QTimerEvent>

#include <algorithm>

namespace tarnwell {

namespace {

/// Less than the time between two frames of the screen, so that scrolling stays even.
constexpr int momentMilliseconds = 12;
/// A moment's pages are bounded both ways: a slow machine shows the hits of a short report at once as well,
/// and a fast one looks at the keys often enough.
constexpr int fewestPages = 40;
constexpr int mostPages = 1000;

} // namespace

void PageFinder::start(const PageSearch& search, int from) {
    m_search = search;
    m_from = from;
    m_searched = 0;
    m_hits.clear();
    m_wrapped = 0;
    m_error.clear();
    m_timer.stop();
    if (!search.text.isEmpty())
        searchForAMoment();
}

int PageFinder::firstHitFrom(int page) const {
    return static_cast<int>(std::ranges::lower_bound(m_hits, page) - m_hits.begin());
}

void PageFinder::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_timer.timerId())
        return;
    runEvent([this] {
        searchForAMoment();
        Q_EMIT progressed();
    });
}

void PageFinder::searchForAMoment() {
    const QDeadlineTimer moment(momentMilliseconds);
    const int count = m_pages.count();
    try {
        for (int done = 0; m_searched < count && done < mostPages; ++done, ++m_searched) {
            if (done >= fewestPages && moment.hasExpired())
                break;
            searchPage((m_from - 1 + m_searched) % count + 1);
        }
    } catch (const RunTimeError& error) {
        m_hits.clear();
        m_error = error.description();
        m_searched = count;
    }
    if (m_searched >= count)
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(0, this);
}

void PageFinder::searchPage(int page) {
    const auto found = static_cast<std::size_t>(m_pages.hitsOn(page, m_search));
    const std::size_t place = page < m_from ? m_wrapped : m_hits.size();
    m_hits.insert(m_hits.begin() + static_cast<std::ptrdiff_t>(place), found, page);
    if (page < m_from)
        m_wrapped += found;
}

} // namespace tarnwell
