#include "reports/output/PageOutput.h"
#include "reports/pages/PagePainter.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace tarnwell;

namespace {

constexpr int textsPerPage = 370;
constexpr int columns = 5;
constexpr int pdfPages = 100;
constexpr int longReport = 1000;

PageText denseText(qint64 page, int number) {
    return {static_cast<qint16>(500 + number % columns * 2200),
            static_cast<qint16>(300 + number / columns * 200),
            QStringLiteral("Framing %1.%2").arg(page).arg(number),
            page,
            Orientation::Portrait,
            {.Bold = number % 10 == 0, .FontSize = 8, .FontName = QStringLiteral("Arial")}};
}

/// Draws dense pages and finishes the run.
qint64 drawDense(PageStore& store, qint64 pages) {
    const qint64 key = store.newReport();
    for (qint64 page = 1; page <= pages; ++page)
        for (int number = 0; number < textsPerPage; ++number)
            store.add(key, denseText(page, number));
    store.finish(key);
    return key;
}

QString reportDatabase(const QTemporaryDir& folder) {
    return folder.filePath(QStringLiteral("Report.mdb"));
}

/// A page at 100 % of a usual screen.
QImage shown(const ReportPages& report, qint64 number, PagePainter& pagePainter) {
    QImage image(816, 1056, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.scale(96.0 / 1440, 96.0 / 1440);
    const PageItems page = report.page(number);
    PagePainter::drawPaper(painter, page.orientation);
    pagePainter.drawPage(painter, page, report.pageCount());
    painter.end();
    return image;
}

/// Megabytes that the process holds in memory: "VmRSS" now, "VmHWM" at most.
double megabytes(const char* which) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly))
        for (const QByteArray& line : status.readAll().split('\n'))
            if (line.startsWith(which))
                return line.simplified().split(' ').at(1).toDouble() / 1024;
    return 0;
}

void perSecond(benchmark::State& state, const char* name, double count) {
    state.counters[name] = benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate);
}

void storeItems(benchmark::State& state) {
    const QTemporaryDir folder;
    PageStore store(reportDatabase(folder));
    std::vector<PageText> texts;
    texts.reserve(textsPerPage);
    for (int number = 0; number < textsPerPage; ++number)
        texts.push_back(denseText(1, number));
    for (auto _ : state) {
        const qint64 key = store.newReport();
        for (qint64 page = 1; page <= longReport; ++page)
            for (PageText& text : texts) {
                text.page = page;
                store.add(key, text);
            }
        store.finish(key);
    }
    perSecond(state, "items", double{textsPerPage} * longReport);
}
BENCHMARK(storeItems)->Unit(benchmark::kMillisecond);

/// From the finished drawing to the first page of 1,000 on the screen; then what the open report holds.
void showFirstOfLongReport(benchmark::State& state) {
    const QTemporaryDir folder;
    for (auto _ : state) {
        state.PauseTiming();
        PageStore store(reportDatabase(folder));
        const qint64 key = store.newReport();
        for (qint64 page = 1; page <= longReport; ++page)
            for (int number = 0; number < textsPerPage; ++number)
                store.add(key, denseText(page, number));
        state.ResumeTiming();
        store.finish(key);
        const ReportPages report(store, key);
        PagePainter pagePainter;
        benchmark::DoNotOptimize(shown(report, 1, pagePainter));
        state.PauseTiming();
        for (qint64 page = 1; page <= longReport; page += 10)
            benchmark::DoNotOptimize(shown(report, page, pagePainter));
        state.counters["MB"] = megabytes("VmRSS");
        state.counters["MBpeak"] = megabytes("VmHWM");
        state.ResumeTiming();
    }
}
BENCHMARK(showFirstOfLongReport)->Unit(benchmark::kMillisecond);

class LongReport {
public:
    LongReport() : m_store(reportDatabase(m_folder)), m_key(drawDense(m_store, longReport)) {}
    [[nodiscard]] ReportPages report() const { return {m_store, m_key}; }

private:
    QTemporaryDir m_folder;
    PageStore m_store;
    qint64 m_key;
};

void showPage(benchmark::State& state) {
    const LongReport data;
    PagePainter pagePainter;
    qint64 page = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(shown(data.report(), page++ % longReport + 1, pagePainter));
}
BENCHMARK(showPage)->Unit(benchmark::kMillisecond);

void findInLongReport(benchmark::State& state) {
    const LongReport data;
    for (auto _ : state)
        for (qint64 page = 1; page <= longReport; ++page)
            benchmark::DoNotOptimize(data.report().findOnPage(QStringLiteral("framing 1000.3"), page));
}
BENCHMARK(findInLongReport)->Unit(benchmark::kMillisecond);

void saveDensePdf(benchmark::State& state) {
    const QTemporaryDir folder;
    PageStore store(reportDatabase(folder));
    const ReportPages report(store, drawDense(store, pdfPages));
    for (auto _ : state)
        savePdf(report, folder.filePath(QStringLiteral("out.pdf")), QStringLiteral("Dense"));
    perSecond(state, "pages", pdfPages);
}
BENCHMARK(saveDensePdf)->Unit(benchmark::kMillisecond);

/// The same texts by the toolkit's plain way: the yardstick for the one above.
void bareDensePdf(benchmark::State& state) {
    const QTemporaryDir folder;
    for (auto _ : state) {
        QPdfWriter writer(folder.filePath(QStringLiteral("bare.pdf")));
        writer.setResolution(1440);
        writer.setPageSize(QPageSize(QPageSize::Letter));
        writer.setPageMargins({});
        QPainter painter(&writer);
        QFont plain(installedFamily(QStringLiteral("Arial")), 8);
        QFont bold = plain;
        bold.setBold(true);
        for (qint64 page = 1; page <= pdfPages; ++page) {
            if (page > 1)
                writer.newPage();
            for (int number = 0; number < textsPerPage; ++number) {
                const PageText text = denseText(page, number);
                painter.setFont(text.look.Bold ? bold : plain);
                painter.drawText(QPointF(text.x, text.y), text.text);
            }
        }
    }
    perSecond(state, "pages", pdfPages);
}
BENCHMARK(bareDensePdf)->Unit(benchmark::kMillisecond);

} // namespace
