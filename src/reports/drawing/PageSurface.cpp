#include "reports/drawing/PageSurface.h"

#include "data/RunTimeError.h"

#include <limits>

namespace tarnwell {

qint16 movedBy(qint16 coordinate, int twips) {
    const int moved = coordinate + twips;
    if (moved < std::numeric_limits<qint16>::min() || moved > std::numeric_limits<qint16>::max())
        raise(Failure::Overflow);
    return static_cast<qint16>(moved);
}

void PageSurface::AddText(qint64 ReportKey, qint16& Y, qint16 X, const QString& Text, qint64 Page,
                          Orientation orientation, const TextLook& look) {
    AddTextWithin(ReportKey, Y, X, 0, Text, Page, orientation, look);
}

void PageSurface::AddTextWithin(qint64 ReportKey, qint16& Y, qint16 X, qint16 Width, const QString& Text,
                                qint64 Page, Orientation orientation, const TextLook& look) {
    store(ReportKey, PageText{X, Y, Text, Page, orientation, look, Width});
    Y = movedBy(Y, look.YStep);
}

} // namespace tarnwell
