#include "reports/output/PrintSystem.h"

#include "data/RunTimeError.h"

#include <QEventLoop>
#include <QPaintEngine>
#include <QPrintEngine>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

#include <algorithm>
#include <optional>

namespace tarnwell {

namespace {

struct Ended {
    bool isFine = false;
    QString output;
    QString error;
};

/// Runs a command of the printing system in English to its end; nothing when it is not there. Windows are
/// painted meanwhile, and take no keys or clicks.
std::optional<Ended> run(const QString& command, const QStringList& arguments) {
    const QString program = QStandardPaths::findExecutable(command);
    if (program.isEmpty())
        return std::nullopt;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    process.start(program, arguments);
    if (!process.waitForStarted())
        return std::nullopt;
    if (process.state() != QProcess::NotRunning)
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    return Ended{process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 QString::fromUtf8(process.readAllStandardOutput()),
                 QString::fromUtf8(process.readAllStandardError())};
}

/// What the toolkit's dialog has for the queue alone (pages on a sheet, banners): names and values
/// alternating. The toolkit has no public name for this property.
QStringList dialogOptions(const QPrinter& printer) {
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): the toolkit casts it so itself
    constexpr auto queueOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);
    const QStringList pairs = printer.printEngine()->property(queueOptions).toStringList();
    QStringList options;
    for (qsizetype i = 0; i + 1 < pairs.size(); i += 2)
        options << QStringLiteral("%1=%2").arg(pairs[i], pairs[i + 1]);
    return options;
}

QString sidesOf(QPrinter::DuplexMode mode, Orientation orientation) {
    const bool isUpright = orientation == Orientation::Portrait;
    switch (mode) {
    case QPrinter::DuplexLongSide:
        return QStringLiteral("two-sided-long-edge");
    case QPrinter::DuplexShortSide:
        return QStringLiteral("two-sided-short-edge");
    case QPrinter::DuplexAuto:
        return isUpright ? QStringLiteral("two-sided-long-edge") : QStringLiteral("two-sided-short-edge");
    case QPrinter::DuplexNone:
        break;
    }
    return QStringLiteral("one-sided");
}

QStringList optionsOf(const QPrinter& printer, Orientation orientation) {
    QStringList options{QStringLiteral("media=") + printer.pageLayout().pageSize().key(),
                        QStringLiteral("sides=") + sidesOf(printer.duplex(), orientation)};
    if (printer.copyCount() > 1 && printer.collateCopies())
        options << QStringLiteral("collate=true");
    if (printer.colorMode() == QPrinter::GrayScale)
        options << QStringLiteral("print-color-mode=monochrome");
    return options + dialogOptions(printer);
}

/// The reason of a refused job: the command's own words, unless the whole printing system is silent, for
/// which they are misleading.
QString refusal(const Ended& job) {
    const std::optional<Ended> state = run(QStringLiteral("lpstat"), {QStringLiteral("-r")});
    if (state && state->output.contains(QLatin1String("not running")))
        return QStringLiteral("The printing system does not answer.");
    // "/usr/bin/lp: Error - The printer or class does not exist."
    static const QRegularExpression begin(QStringLiteral(R"(^\S*lp: (Error - )?)"));
    return job.error.simplified().remove(begin);
}

} // namespace

bool isQueue(const QPrinter& printer) {
    return printer.paintEngine()->type() == QPaintEngine::Pdf && printer.outputFileName().isEmpty() &&
           !printer.printerName().isEmpty();
}

void sendToQueue(const QPrinter& printer, const QString& pdf, const QString& title, Orientation orientation) {
    QStringList arguments{QStringLiteral("-d"), printer.printerName(),
                          QStringLiteral("-t"), title,
                          QStringLiteral("-n"), QString::number(std::max(printer.copyCount(), 1))};
    for (const QString& option : optionsOf(printer, orientation))
        arguments << QStringLiteral("-o") << option;
    const std::optional<Ended> job = run(QStringLiteral("lp"), arguments << QStringLiteral("--") << pdf);
    if (!job)
        raise(Failure::PrinterError, QStringLiteral("The printing system's command lp is not installed."));
    if (!job->isFine)
        raise(Failure::PrinterError,
              QStringLiteral("%1 did not take the report. %2").arg(printer.printerName(), refusal(*job)));
}

} // namespace tarnwell
