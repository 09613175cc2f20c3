#include "frame/main/BackupEntry.h"

#include "data/RunTimeError.h"
#include "data/recordset/Recordset.h"
#include "runtime/BackupSettings.h"
#include "runtime/RunTime.h"

#include <QFileInfo>
#include <QLocale>

namespace tarnwell {

namespace {

constexpr qsizetype shownFindings = 10;

QLocale plainEnglish() {
    return QLocale(QLocale::English);
}

QString dataSize(qint64 bytes) {
    return plainEnglish().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QString dayText(QDate day) {
    return Format(DateTime{day}, QStringLiteral("mm/dd/yy"));
}

DatabaseFigures figuresAtWork(const QString& connectionString) {
    Connection connection;
    connection.setConnectionString(connectionString);
    connection.Open();
    const auto value = [&](const char* sql) {
        return firstValue(connection, QLatin1String(sql)).value_or(Value());
    };
    DatabaseFigures figures;
    figures.payments = value("SELECT COUNT(*) FROM JobTaskEmployee").toLong();
    if (const Value last = value("SELECT MAX(Completed) FROM JobTaskEmployee"); IsDate(last))
        figures.lastPayment = CDate(last).date;
    return figures;
}

EntryFigures figuresOf(const BackupEntry& entry, int place, const GoesOn& goesOn) {
    try {
        return {.entry = place,
                .figures = entry.isAtWork ? figuresAtWork(entry.connectionString)
                                          : readFigures(entry.file.path, goesOn),
                .failure = {}};
    } catch (const RunTimeError& error) {
        return {.entry = place, .figures = std::nullopt, .failure = error.description()};
    }
}

} // namespace

std::vector<BackupEntry> listBackups() {
    const DatabaseAddress atWork = databaseAtWork();
    BackupEntry first{.file = {}, .isAtWork = true, .connectionString = atWork.connectionString};
    first.file.path = atWork.path;
    first.file.bytes = atWork.isFile() ? QFileInfo(atWork.path).size() : 0;
    std::vector<BackupEntry> entries{std::move(first)};
    const QString pathAtWork = QFileInfo(atWork.path).canonicalFilePath();
    for (BackupFile& file : backupsIn(backupPlace().folder))
        if (pathAtWork.isEmpty() || QFileInfo(file.path).canonicalFilePath() != pathAtWork)
            entries.push_back({.file = std::move(file), .isAtWork = false, .connectionString = {}});
    return entries;
}

QString kindText(const BackupEntry& entry) {
    if (entry.isAtWork)
        return QStringLiteral("Present data");
    switch (entry.file.name.kind) {
    case BackupKind::Daily:
        return QStringLiteral("Daily");
    case BackupKind::ByHand:
        return QStringLiteral("By hand");
    case BackupKind::Before:
        return QFileInfo(entry.file.path).fileName().startsWith(QLatin1String("before-restore"))
                   ? QStringLiteral("Before a restore")
                   : QStringLiteral("Before an upgrade");
    case BackupKind::Other:
        break;
    }
    return QStringLiteral("Other file");
}

QString madeText(const BackupEntry& entry) {
    if (entry.isAtWork)
        return QStringLiteral("Now");
    const QDateTime& made = entry.file.made;
    const bool isTimeKnown = made.time() != QTime(0, 0);
    return isTimeKnown ? dayText(made.date()) + made.time().toString(QStringLiteral(" HH:mm"))
                       : dayText(made.date());
}

QString sizeText(const BackupEntry& entry) {
    return entry.file.path.isEmpty() ? QString() : dataSize(entry.file.bytes);
}

QString paymentsText(const DatabaseFigures& figures) {
    return plainEnglish().toString(figures.payments);
}

QString lastPaymentText(const DatabaseFigures& figures) {
    return figures.lastPayment ? dayText(*figures.lastPayment) : QStringLiteral("none");
}

QString summaryText(const std::vector<BackupEntry>& entries) {
    qint64 backups = 0;
    qint64 bytes = 0;
    for (const BackupEntry& entry : entries)
        if (!entry.isAtWork) {
            ++backups;
            bytes += entry.file.bytes;
        }
    if (backups == 0)
        return {};
    return QStringLiteral("%1 %2, %3")
        .arg(QString::number(backups), backups == 1 ? QStringLiteral("backup") : QStringLiteral("backups"),
             dataSize(bytes));
}

QString findingsText(const CheckResult& result) {
    QStringList lines = result.engineProblems;
    for (const FindingGroup& group : result.groups)
        lines << QStringLiteral("%1: %2").arg(group.rule, plainEnglish().toString(group.count));
    const qsizetype more = lines.size() - shownFindings;
    lines = lines.first(std::min(lines.size(), shownFindings));
    if (more > 0)
        lines << QStringLiteral("and %1 more").arg(more);
    return lines.join(u'\n');
}

void FigureReader::read(std::vector<BackupEntry> entries, std::function<void(const EntryFigures&)> found) {
    stop();
    m_thread = std::jthread(
        [entries = std::move(entries), found = std::move(found)](const std::stop_token& stopped) {
            const GoesOn goesOn = [&] { return !stopped.stop_requested(); };
            for (int place = 0; place < static_cast<int>(entries.size()) && goesOn(); ++place)
                if (const EntryFigures figures =
                        figuresOf(entries[static_cast<std::size_t>(place)], place, goesOn);
                    goesOn())
                    found(figures);
        });
}

void FigureReader::stop() {
    m_thread.request_stop();
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace tarnwell
