#include "controls/ListBox.h"

#include "controls/KeyCodes.h"
#include "data/RunTimeError.h"
#include "runtime/EventGuard.h"

#include <QApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>

#include <map>
#include <set>

namespace tarnwell {

ListBox::ListBox(Pitch pitch, QWidget* parent) : QListWidget(parent) {
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    if (pitch == Pitch::Fixed)
        setFont(fixedPitchFont());
    connect(this, &QListWidget::itemClicked, this, [this] { Q_EMIT clicked(); });
    connect(this, &QListWidget::itemDoubleClicked, this, [this] { Q_EMIT doubleClick(); });
}

void ListBox::setScrollsSideways() {
    setUniformItemSizes(false);
    setHorizontalScrollMode(ScrollPerPixel);
}

void ListBox::AddItem(const QString& text, qint64 itemData) {
    auto* line = new QListWidgetItem(text);
    line->setData(Qt::UserRole, itemData);
    addItem(line);
}

void ListBox::setItems(const std::vector<ListItem>& items) {
    setUpdatesEnabled(false);
    clear();
    for (const auto& [text, itemData] : items)
        AddItem(text, itemData);
    setUpdatesEnabled(true);
}

void ListBox::showChangedItems(const std::vector<ListItem>& items) {
    const auto lineAt = [this](int row) { return ListItem(item(row)->text(), ItemData(row)); };
    bool same = ListCount() == std::ssize(items);
    for (int row = 0; same && row < ListCount(); ++row)
        same = lineAt(row) == items[static_cast<std::size_t>(row)];
    if (same)
        return;
    const QSignalBlocker quiet(this);
    std::set<std::pair<qint64, int>> marked;
    std::pair<qint64, int> current;
    std::map<qint64, int> seen;
    for (int row = 0; row < ListCount(); ++row) {
        const std::pair line(ItemData(row), seen[ItemData(row)]++);
        if (item(row)->isSelected())
            marked.insert(line);
        if (row == currentRow())
            current = line;
    }
    const bool hadCurrent = currentRow() >= 0;
    const int above = verticalScrollBar()->value();
    setItems(items);
    seen.clear();
    for (int row = 0; row < ListCount(); ++row) {
        const std::pair line(ItemData(row), seen[ItemData(row)]++);
        if (hadCurrent && line == current)
            setCurrentRow(row, QItemSelectionModel::NoUpdate);
        item(row)->setSelected(marked.contains(line));
    }
    verticalScrollBar()->setValue(above);
}

void ListBox::Clear() {
    clear();
}

int ListBox::ListIndex() const {
    const QListWidgetItem* line = currentItem();
    return line != nullptr && line->isSelected() ? currentRow() : -1;
}

void ListBox::setListIndex(int index) {
    if (index < -1 || index >= count())
        tarnwell::raise(Failure::InvalidProperty);
    setCurrentRow(index);
    if (index < 0)
        clearSelection();
    fireEvent([this] { Q_EMIT clicked(); });
}

qint64 ListBox::ItemData(int index) const {
    if (index < 0 || index >= count())
        tarnwell::raise(Failure::InvalidPropertyIndex);
    return item(index)->data(Qt::UserRole).toLongLong();
}

void ListBox::keyboardSearch(const QString& search) {
    const bool marksOnly = selectionMode() == MultiSelection && search == u" ";
    if (!marksOnly)
        QListWidget::keyboardSearch(search);
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    return selectionMode() == MultiSelection && event == nullptr
               ? QItemSelectionModel::NoUpdate
               : QListWidget::selectionCommand(index, event);
}

/// A list that gets the focus has its first line marked by the toolkit but not chosen. The next arrow key
/// would then go past that line.
bool ListBox::chooseFirst(int key) {
    const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home;
    if (!moves || selectionMode() != SingleSelection || currentRow() != 0 || ListIndex() >= 0)
        return false;
    setCurrentRow(0);
    return true;
}

bool ListBox::scrollSideways(int key) {
    constexpr int steps = 4; // To the width of the list.
    QScrollBar* bar = horizontalScrollBar();
    if ((key != Qt::Key_Left && key != Qt::Key_Right) || bar->maximum() == 0)
        return false;
    const int step = viewport()->width() / steps;
    bar->setValue(bar->value() + (key == Qt::Key_Left ? -step : step));
    return true;
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    m_pressed.press(*event);
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && ListIndex() >= 0) {
        Q_EMIT doubleClick();
        return;
    }
    const int before = ListIndex();
    if (!chooseFirst(event->key()) && !scrollSideways(event->key()))
        QListWidget::keyPressEvent(event);
    if (ListIndex() != before)
        Q_EMIT clicked();
}

void ListBox::keyReleaseEvent(QKeyEvent* event) {
    QListWidget::keyReleaseEvent(event);
    if (m_pressed.release(*event))
        Q_EMIT keyUp(keyCodeOf(*event), shiftStateOf(*event));
}

void ListBox::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() == 0)
        paintEmptyHint(*this, m_emptyHint);
}

QFont fixedPitchFont() {
    static const QString family = [] {
        const QStringList installed = QFontDatabase::families();
        for (const auto* name : {"Courier New", "Liberation Mono", "Cousine"})
            if (installed.contains(QLatin1String(name)))
                return QString::fromLatin1(name);
        return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    }();
    QFont font = QApplication::font();
    font.setFamily(family);
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    return font;
}

} // namespace tarnwell
