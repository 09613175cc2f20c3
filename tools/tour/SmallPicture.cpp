#include "tour/SmallPicture.h"

#include <QHash>

#include <algorithm>
#include <vector>

namespace tarnwell::tour {

namespace {

constexpr std::size_t mostColours = 256;

} // namespace

QImage smallPicture(const QImage& picture) {
    const QImage full = picture.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counted;
    for (int y = 0; y < full.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(full.constScanLine(y));
        for (int x = 0; x < full.width(); ++x)
            ++counted[line[x]];
    }
    std::vector<QRgb> colours(counted.keyBegin(), counted.keyEnd());
    // By number among the equally common ones: the same picture gives the same file.
    std::ranges::sort(colours, [&counted](QRgb left, QRgb right) {
        return std::pair(-counted.value(left), left) < std::pair(-counted.value(right), right);
    });
    colours.resize(std::min(colours.size(), mostColours));
    return full.convertToFormat(QImage::Format_Indexed8, QList<QRgb>(colours.begin(), colours.end()),
                                Qt::ThresholdDither);
}

} // namespace tarnwell::tour
