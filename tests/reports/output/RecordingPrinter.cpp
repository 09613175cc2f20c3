#include "RecordingPrinter.h"

#include "reports/output/PrinterDialogs.h"

#include <QPageLayout>

namespace tarnwell::test {

namespace {

constexpr int dotsPerInch = 300;

} // namespace

RecordingPrinter::RecordingPrinter() {
    m_print.values = {
        {QPrintEngine::PPK_Resolution, dotsPerInch},
        {QPrintEngine::PPK_PrinterName, QStringLiteral("Office printer")},
        {QPrintEngine::PPK_NumberOfCopies, 1},
        {QPrintEngine::PPK_CollateCopies, true},
        {QPrintEngine::PPK_SupportsMultipleCopies, false},
        {QPrintEngine::PPK_QPageLayout,
         QVariant::fromValue(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF()))}};
    setEngines(&m_print, &m_paint);
}

RecordingPrinter& RecordingPrinter::makeCurrent() {
    auto made = std::make_unique<RecordingPrinter>();
    RecordingPrinter& printer = *made;
    setCurrentPrinter(std::move(made));
    return printer;
}

bool RecordingPrinter::PrintEngine::newPage() {
    if (static_cast<int>(sheets.size()) + 1 == failingSheet) {
        state = QPrinter::Error;
        return false;
    }
    sheets.push_back(0);
    return true;
}

bool RecordingPrinter::PrintEngine::abort() {
    state = QPrinter::Aborted;
    return true;
}

int RecordingPrinter::PrintEngine::metric(QPaintDevice::PaintDeviceMetric metric) const {
    const QSize size = values[PPK_QPageLayout].value<QPageLayout>().fullRectPixels(dotsPerInch).size();
    switch (metric) {
    case QPaintDevice::PdmWidth:
        return size.width();
    case QPaintDevice::PdmHeight:
        return size.height();
    case QPaintDevice::PdmDepth:
        return 1;
    default:
        return dotsPerInch;
    }
}

bool RecordingPrinter::PaintEngine::begin(QPaintDevice* /*device*/) {
    print.state = QPrinter::Active;
    return print.newPage();
}

bool RecordingPrinter::PaintEngine::end() {
    if (print.state == QPrinter::Active)
        print.state = QPrinter::Idle;
    return true;
}

void RecordingPrinter::PaintEngine::updateState(const QPaintEngineState& /*state*/) {}

void RecordingPrinter::PaintEngine::drawPixmap(const QRectF& /*target*/, const QPixmap& /*pixmap*/,
                                               const QRectF& /*source*/) {}

void RecordingPrinter::PaintEngine::drawTextItem(const QPointF& /*place*/, const QTextItem& /*item*/) {
    ++print.sheets.back();
}

} // namespace tarnwell::test
