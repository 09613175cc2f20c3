#pragma once

#include "reports/PageSurface.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

namespace tarnwell {

/// What lies on one page, each kind in the order in which it was drawn.
struct StoredPage {
    Orientation orientation = Orientation::Portrait;
    std::vector<PageText> texts;
    std::vector<PageLine> lines;
};

/// The text as it is read on the page: "Page:2 of" gets the number of pages behind it.
[[nodiscard]] QString textOnPage(const PageText& text, qint64 pageCount);

/// Items as bytes, one behind the other; their page is told elsewhere. Only the program that wrote them reads
/// them, so they are laid out as its memory has them.
void appendItem(QByteArray& items, const PageText& text);
void appendItem(QByteArray& items, const PageLine& line);
/// Adds the items to the page. Raises DatabaseForeign for bytes that are no items.
void readItems(QByteArrayView items, qint64 number, StoredPage& page);

} // namespace tarnwell
