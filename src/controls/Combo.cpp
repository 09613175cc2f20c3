#include "controls/Combo.h"

#include "controls/KeyCodes.h"
#include "controls/SingleLine.h"
#include "controls/TextStart.h"
#include "data/RunTimeError.h"
#include "runtime/EventGuard.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace tarnwell {

namespace {

constexpr int visibleItems = 20;
constexpr int shownCharacters = 12;

} // namespace

Combo::Combo(QWidget* parent) : QComboBox(parent), m_items(new ItemModel(this)) {
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    setModel(m_items);
    setMaxVisibleItems(visibleItems);
    // The longest entry of a long list is not looked for: the screen's layout gives the width.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(shownCharacters);
    if (auto* list = qobject_cast<QListView*>(view()))
        list->setUniformItemSizes(true);
    // Leaving the field with a text that equals an entry would choose that entry.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    keepOnOneLine(*lineEdit());
    showStartWhenLeft(*lineEdit());
    connect(lineEdit(), &QLineEdit::textEdited, this, guarded([this] { forgetChoice(); }));
    connect(this, &QComboBox::activated, this, guarded([this](int index) {
                m_listIndex = m_inForce = index;
                Q_EMIT clicked();
            }));
}

void Combo::setListOnly() {
    lineEdit()->setReadOnly(true);
    lineEdit()->installEventFilter(this);
}

void Combo::setAlwaysChosen() {
    m_alwaysChosen = true;
}

void Combo::AddItem(const QString& text, qint64 itemData, int at) {
    const int position = at < 0 ? ListCount() : at;
    if (position > ListCount())
        tarnwell::raise(Failure::InvalidProcedureCall);
    // The first item of an empty list would choose itself.
    const bool first = ListCount() == 0;
    const QString before = currentText();
    m_items->insert(position, {text, itemData});
    if (first) {
        QComboBox::setCurrentIndex(-1);
        setEditText(before);
        return;
    }
    for (int* index : {&m_listIndex, &m_inForce})
        if (position <= *index)
            ++*index;
}

void Combo::setItems(std::vector<ListItem> items) {
    m_items->setItems(std::move(items));
    m_listIndex = m_inForce = -1;
    QComboBox::setCurrentIndex(-1);
    setEditText({});
}

void Combo::setTexts(const std::vector<QString>& texts) {
    std::vector<ListItem> items;
    items.reserve(texts.size());
    for (const QString& text : texts)
        items.emplace_back(text, 0);
    setItems(std::move(items));
}

void Combo::Clear() {
    setItems({});
}

int Combo::ListCount() const {
    return static_cast<int>(m_items->items().size());
}

QString Combo::List(int index) const {
    return index >= 0 && index < ListCount() ? m_items->items()[static_cast<std::size_t>(index)].text
                                             : QString();
}

int Combo::ListIndex() {
    if (!m_alwaysChosen)
        return m_listIndex;
    if (currentText().trimmed().isEmpty())
        returnToChoice();
    return m_inForce;
}

void Combo::setListIndex(int index) {
    if (index < -1 || index >= ListCount())
        tarnwell::raise(Failure::InvalidProperty);
    fireEvent([&] { choose(index); });
}

void Combo::choose(int index) {
    m_listIndex = m_inForce = index;
    QComboBox::setCurrentIndex(index);
    // The same index again: the text may have been typed over.
    if (currentText() != List(index))
        setEditText(List(index));
    Q_EMIT clicked();
}

qint64 Combo::ItemData(int index) const {
    if (index < 0 || index >= ListCount())
        tarnwell::raise(Failure::InvalidPropertyIndex);
    return m_items->items()[static_cast<std::size_t>(index)].key;
}

void Combo::setText(const QString& text) {
    forgetChoice();
    setEditText(text);
}

void Combo::forgetChoice() {
    m_listIndex = -1;
}

/// Fires nothing: the entry was in force all the time.
void Combo::returnToChoice() {
    m_listIndex = m_inForce;
    if (m_inForce >= 0 && currentText() != List(m_inForce))
        setEditText(List(m_inForce));
}

bool Combo::looksLikeAnother() const {
    const auto& items = m_items->items();
    return m_listIndex >= 0 && std::count_if(items.begin(), items.end(), [this](const ListItem& item) {
                                   return item.text == List(m_listIndex);
                               }) > 1;
}

int Combo::SelStart() const {
    return lineEdit()->hasSelectedText() ? lineEdit()->selectionStart() : lineEdit()->cursorPosition();
}

void Combo::setSelStart(int caret) {
    lineEdit()->setCursorPosition(caret);
}

void Combo::step(int by) {
    const int next = std::clamp(m_listIndex + by, 0, ListCount() - 1);
    if (next == m_listIndex)
        return;
    choose(next);
    lineEdit()->selectAll(); // What is typed next begins a new search.
}

bool Combo::chooseNext(const QString& beginning) {
    if (beginning.isEmpty())
        return false;
    for (int i = 1; i <= ListCount(); ++i)
        if (const int index = (m_listIndex + i) % ListCount();
            List(index).startsWith(beginning, Qt::CaseInsensitive)) {
            choose(index);
            return true;
        }
    return false;
}

void Combo::keyPressEvent(QKeyEvent* event) {
    m_pressed.press(*event);
    int keyCode = keyCodeOf(*event);
    Q_EMIT keyDown(keyCode, shiftStateOf(*event));
    if (keyCode == 0) {
        event->accept();
        return;
    }
    const QString before = currentText();
    const int caretBefore = SelStart();
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const int by = event->key() == Qt::Key_Up         ? -1
                   : event->key() == Qt::Key_Down     ? 1
                   : event->key() == Qt::Key_PageUp   ? -visibleItems
                   : event->key() == Qt::Key_PageDown ? visibleItems
                                                      : 0;
    const bool steps = plain && by != 0 && ListCount() > 0;
    if (steps)
        step(by);
    else if (!lineEdit()->isReadOnly() || !chooseNext(event->text()))
        QComboBox::keyPressEvent(event);
    // What was chosen stands, whatever other entry looks like it. Select All, Copy and the combo's own
    // mnemonic are no input either: a search would take the selection away that is to be typed over.
    const bool isCommand = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    const bool caretMoved = !isCommand && SelStart() != caretBefore;
    const bool isTyped = currentText() != before || (caretMoved && !looksLikeAnother());
    if (steps || (!isTyped && (isCommand || m_listIndex >= 0)))
        m_pressed.forget(*event);
}

void Combo::keyReleaseEvent(QKeyEvent* event) {
    QComboBox::keyReleaseEvent(event);
    if (m_pressed.release(*event))
        Q_EMIT keyUp(keyCodeOf(*event), shiftStateOf(*event));
}

/// Only the line of a list that can't be typed over is watched. The release would close a list that the press
/// opened.
bool Combo::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_clicked = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
        return m_clicked;
    case QEvent::MouseButtonRelease:
        if (!std::exchange(m_clicked, false))
            return false;
        showPopup();
        return true;
    default:
        return QComboBox::eventFilter(watched, event);
    }
}

void Combo::wheelEvent(QWheelEvent* event) {
    const int turned = event->angleDelta().y();
    if (!hasFocus())
        event->ignore();
    else if (m_listIndex < 0 && turned != 0 && ListCount() > 0)
        step(turned > 0 ? -1 : 1); // The toolkit would go on from what was chosen before.
    else
        QComboBox::wheelEvent(event);
}

void Combo::focusOutEvent(QFocusEvent* event) {
    if (m_alwaysChosen)
        returnToChoice();
    QComboBox::focusOutEvent(event);
}

} // namespace tarnwell
