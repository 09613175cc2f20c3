#pragma once

#include <QString>
#include <QtGlobal>

namespace tarnwell {

inline constexpr double twipsPerInch = 1440;
inline constexpr int twipsPerPoint = 20;

/// How a report's pages lie on the paper; each report uses one for all of its pages.
enum class Orientation : int { Portrait = 1, Landscape = 2 };

/// How a text looks and how far the next one is; what a call leaves out is the surface's own.
struct TextLook {
    static constexpr int defaultStep = 240; ///< Twips: a line of the default size.
    static constexpr quint32 windowText =
        0x80000008; ///< The system's colour of text, which is black on paper.

    bool Bold = false;
    int FontSize = 10;       ///< Points.
    int YStep = defaultStep; ///< Twips that `Y` goes down after the text; 0 leaves it on the row.
    QString FontName = {};   ///< Empty: the surface's own.
    bool PageTotal = false;  ///< The text ends in " of" and the surface adds the number of pages.
    quint32 BackColor = 0;   ///< 0: none.
    quint32 ForeColor = windowText;
    bool Flag2 = false; ///< Kept with the text; nothing depends on it.
};

/// Coordinates are twips (1,440 to the inch) from the page's top left; pages count from 1.
struct PageText {
    qint16 x;
    qint16 y; ///< Top of the text.
    QString text;
    qint64 page;
    Orientation orientation;
    TextLook look;
    qint16 width = 0; ///< Twips: a text that needs more is drawn narrower. 0: as much as it needs.
};

struct PageLine {
    qint16 x1;
    qint16 y1;
    qint16 x2;
    qint16 y2;
    qint64 page;
    Orientation orientation;
    int width = 1; ///< 3 for bars and the rules of totals.
};

/// What a report draws on. The pages of a run are kept under the run's key.
class PageSurface {
public:
    virtual ~PageSurface() = default;

    /// Starts an empty report and returns its key, which is never 0.
    virtual qint64 NewReport() = 0;
    /// Stores a text at (X, Y) and then moves `Y` down by the look's step. Raises Overflow when `Y` would be
    /// out of range; the text is stored all the same and `Y` stays.
    void AddText(qint64 ReportKey, qint16& Y, qint16 X, const QString& Text, qint64 Page,
                 Orientation orientation, const TextLook& look = {});
    /// The same for a text with a neighbour on its right. One that needs more than `Width` twips is drawn
    /// narrower, as far as it stays readable; a `Width` of 0 or less limits nothing.
    void AddTextWithin(qint64 ReportKey, qint16& Y, qint16 X, qint16 Width, const QString& Text, qint64 Page,
                       Orientation orientation, const TextLook& look = {});
    void AddLine(qint64 ReportKey, const PageLine& line) { store(ReportKey, line); }

protected:
    virtual void store(qint64 reportKey, const PageText& text) = 0;
    virtual void store(qint64 reportKey, const PageLine& line) = 0;
};

/// A coordinate moved by some twips; raises Overflow beyond 16 bits.
[[nodiscard]] qint16 movedBy(qint16 coordinate, int twips);

} // namespace tarnwell
