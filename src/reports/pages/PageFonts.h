#pragma once

#include <QFont>
#include <QRawFont>
#include <QString>

#include <array>
#include <map>
#include <tuple>
#include <vector>

class QPainter;
class QPointF;

namespace tarnwell {

/// The fonts that are installed instead of one that is missing have the same widths, so that a report looks
/// the same everywhere. An empty name is the surface's own font.
[[nodiscard]] QString installedFamily(const QString& name);

/// One font as it lies on the page: its sizes are twips, free of any screen's or printer's dots.
class PageFont {
public:
    PageFont(const QString& name, int points, bool bold);

    /// Draws the text with the top of its line at the place, in the painter's colour.
    void draw(QPainter& painter, const QPointF& topLeft, const QString& text) const;
    /// Twips.
    [[nodiscard]] double width(const QString& text) const;
    /// Twips from the top of a line to its bottom.
    [[nodiscard]] double height() const { return m_raw.ascent() + m_raw.descent(); }

private:
    /// Letters of the western alphabets are placed side by side, whatever stands beside them.
    static constexpr std::size_t plainLetters = 256;

    [[nodiscard]] bool isPlain(const QString& text) const;
    void drawPlain(QPainter& painter, const QPointF& baseline, const QString& text) const;

    QFont m_font;
    QRawFont m_raw;
    std::array<quint32, plainLetters> m_glyphs{}; ///< 0: the font lacks the letter.
    std::array<double, plainLetters> m_widths{};
};

/// The fonts of a report, each made once.
class PageFonts {
public:
    [[nodiscard]] const PageFont& font(const QString& name, int points, bool bold);

private:
    std::map<std::tuple<QString, int, bool>, PageFont> m_fonts;
};

} // namespace tarnwell
