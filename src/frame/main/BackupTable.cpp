#include "frame/main/BackupTable.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>

#include <array>

namespace tarnwell {

namespace {

struct Place {
    enum Column : int { Made, Kind, Size, Payments, LastPayment, File };
};

struct BackupColumn {
    const char* caption;
    Qt::Alignment alignment;
};

/// In the order of the enumeration.
constexpr std::array backupColumns{
    BackupColumn{"Made", Qt::AlignLeft},         BackupColumn{"Kind", Qt::AlignLeft},
    BackupColumn{"Size", Qt::AlignRight},        BackupColumn{"Payments", Qt::AlignRight},
    BackupColumn{"Last Payment", Qt::AlignLeft}, BackupColumn{"File", Qt::AlignLeft},
};
constexpr int backupColumnSpace = 16;

} // namespace

BackupTable::BackupTable(QWidget* parent) : QTableWidget(0, static_cast<int>(backupColumns.size()), parent) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setShowGrid(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    for (int column = 0; column < columnCount(); ++column) {
        const BackupColumn& one = backupColumns.at(static_cast<std::size_t>(column));
        auto* header = new QTableWidgetItem(QLatin1String(one.caption));
        header->setTextAlignment(one.alignment | Qt::AlignVCenter);
        setHorizontalHeaderItem(column, header);
    }
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    m_hint = new QLabel(viewport());
    m_hint->setObjectName(QStringLiteral("lblNoBackups"));
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setTextFormat(Qt::PlainText);
    connect(this, &QTableWidget::cellDoubleClicked, this, [this] { Q_EMIT chosen(); });
}

void BackupTable::setEntries(const std::vector<BackupEntry>& entries, const QString& hint) {
    setRowCount(0);
    setRowCount(static_cast<int>(entries.size()));
    int row = 0;
    for (const BackupEntry& entry : entries) {
        setText(row, Place::Made, madeText(entry));
        setText(row, Place::Kind, kindText(entry));
        setText(row, Place::Size, sizeText(entry));
        setText(row, Place::Payments, QStringLiteral("..."));
        setText(row, Place::LastPayment, QStringLiteral("..."));
        setText(row, Place::File, QFileInfo(entry.file.path).fileName());
        item(row, Place::File)->setToolTip(entry.file.path);
        ++row;
    }
    m_hint->setText(hint);
    m_hint->setVisible(entries.size() < 2 && !hint.isEmpty());
    fitColumns();
    placeHint();
}

void BackupTable::showFigures(const EntryFigures& figures) {
    if (figures.entry >= rowCount())
        return;
    if (figures.figures) {
        setText(figures.entry, Place::Payments, paymentsText(*figures.figures));
        setText(figures.entry, Place::LastPayment, lastPaymentText(*figures.figures));
    } else {
        setText(figures.entry, Place::Payments, QStringLiteral("can't be read"));
        setText(figures.entry, Place::LastPayment, {});
        item(figures.entry, Place::Payments)->setToolTip(figures.failure);
    }
    fitColumns();
}

int BackupTable::currentEntry() const {
    return currentRow();
}

void BackupTable::setCurrentEntry(int entry) {
    setCurrentCell(entry, Place::Made);
}

void BackupTable::setText(int row, int column, const QString& text) {
    if (item(row, column) == nullptr) {
        auto* made = new QTableWidgetItem;
        made->setTextAlignment(backupColumns.at(static_cast<std::size_t>(column)).alignment |
                               Qt::AlignVCenter);
        setItem(row, column, made);
    }
    item(row, column)->setText(text);
}

void BackupTable::fitColumns() {
    for (int column = 0; column < Place::File; ++column)
        setColumnWidth(column,
                       std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column)) +
                           backupColumnSpace);
}

/// In the middle of what is left below the lines.
void BackupTable::placeHint() {
    const int top = rowCount() * verticalHeader()->defaultSectionSize();
    m_hint->setGeometry(viewport()->rect().adjusted(backupColumnSpace, top, -backupColumnSpace, 0));
}

/// The toolkit passes Enter on, and the form would press its default button too.
void BackupTable::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QTableWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    if (currentRow() >= 0 && !event->isAutoRepeat())
        Q_EMIT chosen();
}

void BackupTable::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    placeHint();
}

void BackupTable::showEvent(QShowEvent* event) {
    QTableWidget::showEvent(event);
    fitColumns();
    placeHint();
}

} // namespace tarnwell
