#include "reports/pages/PageFonts.h"

#include "reports/drawing/PageSurface.h"

#include <QFontDatabase>
#include <QGlyphRun>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr auto ownFamily = "Arial";

struct Relatives {
    const char* name;
    std::array<const char*, 4> sameWidths; ///< In the order of preference.
};

constexpr std::array relatives{
    Relatives{"Arial", {"Liberation Sans", "Arimo", "Nimbus Sans", "Helvetica"}},
    Relatives{"Courier New", {"Liberation Mono", "Cousine", "Nimbus Mono PS", "Courier"}},
    Relatives{"Times New Roman", {"Liberation Serif", "Tinos", "Nimbus Roman", "Times"}},
};

/// What breaks a line or is no letter at all is a blank: a text of a report is one line.
QString onOneLine(QString text) {
    for (QChar& letter : text)
        if (letter < QLatin1Char(' ') || letter == QChar::LineSeparator ||
            letter == QChar::ParagraphSeparator)
            letter = QLatin1Char(' ');
    return text;
}

QFont pageFont(const QString& name, int points, bool bold) {
    QFont font(installedFamily(name));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(points, 1) * twipsPerPoint);
    font.setBold(bold);
    // Letters stand where their widths put them, not where a screen's dots would have them.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// A text that needs more than letters side by side: other scripts and letters of another font.
void layOut(QTextLayout& layout) {
    QTextOption option;
    option.setUseDesignMetrics(true);
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
}

} // namespace

QString installedFamily(const QString& name) {
    QString wanted = name.isEmpty() ? QString::fromLatin1(ownFamily) : name;
    if (QFontDatabase::hasFamily(wanted))
        return wanted;
    for (const Relatives& entry : relatives)
        if (wanted.compare(QLatin1String(entry.name), Qt::CaseInsensitive) == 0)
            for (const char* relative : entry.sameWidths)
                if (QFontDatabase::hasFamily(QLatin1String(relative)))
                    return QLatin1String(relative);
    return wanted;
}

PageFont::PageFont(const QString& name, int points, bool bold)
    : m_font(pageFont(name, points, bold)), m_raw(QRawFont::fromFont(m_font)) {
    QString letters;
    for (std::size_t code = 0; code < plainLetters; ++code)
        letters += QChar(static_cast<char16_t>(code));
    const QList<quint32> glyphs = m_raw.glyphIndexesForString(onOneLine(letters));
    const QList<QPointF> widths = m_raw.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics);
    std::ranges::copy(glyphs, m_glyphs.begin());
    std::ranges::transform(widths, m_widths.begin(), &QPointF::x);
}

bool PageFont::isPlain(const QString& text) const {
    return std::ranges::all_of(text, [this](QChar letter) {
        return letter.unicode() < plainLetters && m_glyphs[letter.unicode()] != 0;
    });
}

void PageFont::draw(QPainter& painter, const QPointF& topLeft, const QString& text) const {
    const QPointF baseline = topLeft + QPointF(0, m_raw.ascent());
    if (isPlain(text)) {
        drawPlain(painter, baseline, text);
        return;
    }
    QTextLayout layout(onOneLine(text), m_font);
    layOut(layout);
    const QPointF origin = baseline - QPointF(0, layout.lineAt(0).ascent());
    for (const QGlyphRun& run : layout.glyphRuns())
        painter.drawGlyphRun(origin, run);
}

void PageFont::drawPlain(QPainter& painter, const QPointF& baseline, const QString& text) const {
    const auto length = static_cast<std::size_t>(text.size());
    std::vector<quint32> glyphs(length);
    std::vector<QPointF> places(length);
    double x = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const char16_t code = text[static_cast<qsizetype>(i)].unicode();
        glyphs[i] = m_glyphs[code];
        places[i] = {x, 0};
        x += m_widths[code];
    }
    QGlyphRun run;
    run.setRawFont(m_raw);
    run.setRawData(glyphs.data(), places.data(), static_cast<int>(length));
    painter.drawGlyphRun(baseline, run);
}

double PageFont::width(const QString& text) const {
    if (isPlain(text)) {
        double sum = 0;
        for (const QChar letter : text)
            sum += m_widths[letter.unicode()];
        return sum;
    }
    QTextLayout layout(onOneLine(text), m_font);
    layOut(layout);
    return layout.lineAt(0).naturalTextWidth();
}

const PageFont& PageFonts::font(const QString& name, int points, bool bold) {
    const auto key = std::tuple(name, points, bold);
    const auto found = m_fonts.find(key);
    return found != m_fonts.end() ? found->second
                                  : m_fonts.try_emplace(key, name, points, bold).first->second;
}

} // namespace tarnwell
