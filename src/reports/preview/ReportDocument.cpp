#include "reports/preview/ReportDocument.h"

#include "data/RunTimeError.h"
#include "reports/drawing/PageSurface.h"
#include "reports/output/PageOutput.h"
#include "reports/pages/TextSearch.h"

#include <QPainter>

#include <utility>

namespace tarnwell {

namespace {

constexpr int messageMargin = 1440;
constexpr int messageHeight = 240; ///< Twips of its letters.

/// The text's boxes of what is looked for, one for each time that it stands there.
std::vector<QRectF> boxesIn(const PageText& text, const PageSearch& search, qint64 pages,
                            PagePainter& painter) {
    PageText read = text;
    read.text = textOnPage(text, pages);
    read.look.PageTotal = false;
    const QString whole = read.text;
    const auto boxOfFirst = [&](qsizetype letters) {
        read.text = whole.first(letters);
        return painter.textBox(read, pages);
    };
    std::vector<QRectF> boxes;
    for (const TextSearch::Place& place : TextSearch(search.text, search.letters).placesIn(whole)) {
        QRectF box = boxOfFirst(place.from + place.size);
        box.setLeft(place.from == 0 ? box.left() : boxOfFirst(place.from).right());
        boxes.push_back(box);
    }
    return boxes;
}

} // namespace

ReportDocument::ReportDocument(const ReportPages& report)
    : m_report(report), m_orientation(report.orientation()) {
    setPaper({QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF()});
}

void ReportDocument::setPaper(QPageLayout paper) {
    paper.setUnits(QPageLayout::Point);
    paper.setOrientation(m_orientation == Orientation::Landscape ? QPageLayout::Landscape
                                                                 : QPageLayout::Portrait);
    m_paper = std::move(paper);
}

int ReportDocument::count() const {
    return static_cast<int>(m_report.pageCount());
}

QSizeF ReportDocument::paperSize() const {
    return m_paper.fullRect().size() * twipsPerPoint;
}

QString ReportDocument::paperName() const {
    // Printers have names of their own, "US Letter"; the toolkit's are "Letter / ANSI A".
    const QPageSize::PageSizeId size = QPageSize::id(m_paper.pageSize().sizePoints());
    const QString known = size == QPageSize::Custom ? m_paper.pageSize().name() : QPageSize::name(size);
    const QString name = known.section(QStringLiteral(" / "), 0, 0);
    return QStringLiteral("%1, %2").arg(name, m_paper.orientation() == QPageLayout::Landscape
                                                  ? QStringLiteral("landscape")
                                                  : QStringLiteral("portrait"));
}

QTransform ReportDocument::ontoPaper() const {
    return pageOntoPaper(m_orientation, m_paper);
}

void ReportDocument::paint(QPainter& painter, int page) const {
    painter.save();
    try {
        const PageItems stored = m_report.page(page);
        painter.setTransform(ontoPaper(), true);
        m_painter.drawPage(painter, stored, m_report.pageCount());
    } catch (const RunTimeError& error) {
        QFont font;
        font.setPixelSize(messageHeight);
        painter.setFont(font);
        painter.setPen(Qt::black);
        const QRectF place = QRectF(QPointF(), paperSize())
                                 .adjusted(messageMargin, messageMargin, -messageMargin, -messageMargin);
        painter.drawText(place, Qt::TextWordWrap,
                         QStringLiteral("This page can't be read.\n\n") + error.description());
    }
    painter.restore();
}

int ReportDocument::hitsOn(int page, const PageSearch& search) const {
    return static_cast<int>(m_report.findOnPage(search.text, page, search.letters).size());
}

std::vector<PageMark> ReportDocument::marks(int page, const PageSearch& search) const {
    std::vector<PageMark> marks;
    try {
        const std::vector<std::size_t> hits = m_report.findOnPage(search.text, page, search.letters);
        const PageItems stored = hits.empty() ? PageItems() : m_report.page(page);
        for (int hit = 0; const std::size_t found : hits) {
            const PageText& text = stored.texts.at(found);
            for (const QRectF& box : boxesIn(text, search, m_report.pageCount(), m_painter))
                marks.push_back({hit, ontoPaper().mapRect(box)});
            ++hit;
        }
    } catch (const RunTimeError&) {
        marks.clear(); // The page itself says what is wrong.
    }
    return marks;
}

} // namespace tarnwell
