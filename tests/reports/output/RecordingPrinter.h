#pragma once

#include <QMap>
#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>

#include <vector>

namespace tarnwell::test {

/// A printer that counts the texts of each sheet in place of printing, and fails at a sheet when asked to.
class RecordingPrinter : public QPrinter {
public:
    RecordingPrinter();
    ~RecordingPrinter() override = default;
    /// A new one that is the program's current printer from here on.
    [[nodiscard]] static RecordingPrinter& makeCurrent();

    /// The texts on each sheet; a sheet that was begun counts.
    [[nodiscard]] const std::vector<int>& sheets() const { return m_print.sheets; }
    [[nodiscard]] bool wasAborted() const { return m_print.state == QPrinter::Aborted; }
    /// Cannot begin the sheet of that number, from 1.
    void failAt(int sheet) { m_print.failingSheet = sheet; }
    void setCopiesItself(bool copies) { m_print.values[QPrintEngine::PPK_SupportsMultipleCopies] = copies; }

private:
    struct PrintEngine : QPrintEngine {
        void setProperty(PrintEnginePropertyKey key, const QVariant& value) override { values[key] = value; }
        [[nodiscard]] QVariant property(PrintEnginePropertyKey key) const override { return values[key]; }
        bool newPage() override;
        bool abort() override;
        [[nodiscard]] int metric(QPaintDevice::PaintDeviceMetric metric) const override;
        [[nodiscard]] QPrinter::PrinterState printerState() const override { return state; }

        QMap<PrintEnginePropertyKey, QVariant> values;
        QPrinter::PrinterState state = QPrinter::Idle;
        std::vector<int> sheets;
        int failingSheet = 0;
    };
    struct PaintEngine : QPaintEngine {
        explicit PaintEngine(PrintEngine& engine) : QPaintEngine(AllFeatures), print(engine) {}
        bool begin(QPaintDevice* device) override;
        bool end() override;
        void updateState(const QPaintEngineState& state) override;
        void drawPixmap(const QRectF& target, const QPixmap& pixmap, const QRectF& source) override;
        void drawTextItem(const QPointF& place, const QTextItem& item) override;
        void drawPath(const QPainterPath& /*path*/) override {}
        void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
        [[nodiscard]] Type type() const override { return User; }

        PrintEngine& print;
    };

    PrintEngine m_print;
    PaintEngine m_paint{m_print};
};

} // namespace tarnwell::test
