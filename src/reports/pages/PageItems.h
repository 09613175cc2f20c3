#pragma once

#include "reports/drawing/PageSurface.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>
#include <vector>

namespace tarnwell {

/// What lies on one page, each kind in the order in which it was drawn.
struct PageItems {
    Orientation orientation = Orientation::Portrait;
    std::vector<PageText> texts;
    std::vector<PageLine> lines;
};

/// The text as it is read on the page: "Page:2 of" gets the number of pages behind it.
[[nodiscard]] QString textOnPage(const PageText& text, qint64 pageCount);

/// The items of a page as bytes, one behind the other. Only the program that wrote them reads them, so they
/// are laid out as its memory has them; a look is written where it changes.
class ItemBytes {
public:
    void add(const PageText& text);
    void add(const PageLine& line);
    /// For the next page; `bytes` is empty then.
    void clear();
    [[nodiscard]] const QByteArray& bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    std::optional<TextLook> m_look; ///< Of the text before.
};

/// Adds the items to the page; a text's step, which only the drawing needs, is not among them. Raises
/// DatabaseForeign for bytes that are no items.
void readItems(QByteArrayView items, qint64 number, PageItems& page);

} // namespace tarnwell
