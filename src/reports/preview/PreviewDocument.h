#pragma once

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <vector>

class QPainter;

namespace tarnwell {

/// What is looked for in a report; an empty text finds nothing. Unless case counts, accents don't either.
struct PageSearch {
    QString text;
    Qt::CaseSensitivity letters = Qt::CaseInsensitive;
    friend bool operator==(const PageSearch&, const PageSearch&) = default;
};

/// A place to be marked: a text that was found may hold what is looked for more than once.
struct PageMark {
    int hit;      ///< The zero-based index of the hit on its page.
    QRectF place; ///< Twips from the paper's top left.
};

/// A finished report as the preview sees it. Pages count from 1 and are all of one size.
class PreviewDocument {
public:
    virtual ~PreviewDocument() = default;

    [[nodiscard]] virtual int count() const = 0;
    /// The paper as it lies, in twips.
    [[nodiscard]] virtual QSizeF paperSize() const = 0;
    /// What the paper is called: "Letter, portrait".
    [[nodiscard]] virtual QString paperName() const = 0;
    /// Draws a page on white paper; the painter counts in twips from the paper's top left.
    virtual void paint(QPainter& painter, int page) const = 0;

    /// How many of the page's texts contain what is looked for. Raises what reading the page raises.
    [[nodiscard]] virtual int hitsOn(int page, const PageSearch& search) const = 0;
    /// Where the hits of a page stand; nothing on a page that can't be read.
    [[nodiscard]] virtual std::vector<PageMark> marks(int page, const PageSearch& search) const = 0;
};

} // namespace tarnwell
