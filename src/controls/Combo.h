#pragma once

#include "controls/ItemModel.h"
#include "controls/PressedKeys.h"
#include "runtime/modGeneral.h"

#include <QComboBox>

namespace tarnwell {

/// A drop-down combo with a typed text and item data. Every choice, by mouse, key or code, fires `clicked`
/// once, also when the index stays the same. Typing chooses nothing: it leaves the text without an index.
class Combo : public QComboBox, public SearchableList {
    Q_OBJECT

public:
    explicit Combo(QWidget* parent = nullptr);

    /// The text can't be typed over: a letter chooses the next entry that begins with it, a click on the text
    /// opens the list.
    void setListOnly();
    /// From the first choice on one entry is always in force, however the text is typed over: it is what
    /// `ListIndex` gives, and its text comes back when the combo is left, an emptied one also when the index
    /// is read.
    void setAlwaysChosen();

    /// `at` is the new item's index, -1 for the end. Neither the text nor what is chosen changes.
    void AddItem(const QString& text, qint64 itemData = 0, int at = -1);
    /// Replaces all items at once; nothing is chosen then.
    void setItems(std::vector<ListItem> items);
    /// The same for items without data.
    void setTexts(const std::vector<QString>& texts);
    /// Takes away all items and the text.
    void Clear();
    [[nodiscard]] int ListCount() const override;
    /// "" for an index that is not in the list.
    [[nodiscard]] QString List(int index) const override;
    /// What was chosen last; -1 when nothing was, or the text was typed over since.
    [[nodiscard]] int ListIndex();
    /// -1 takes the choice and the text away. Raises InvalidProperty (380) below -1 and past the end. An
    /// error of the click routine comes back here.
    void setListIndex(int index) override;
    /// Raises InvalidPropertyIndex (381) for an index that is not in the list.
    [[nodiscard]] qint64 ItemData(int index) const;
    [[nodiscard]] QString Text() const override { return currentText(); }
    /// Shows a text; an entry of the same text is not chosen by it.
    void setText(const QString& text);
    /// The caret counts from 0; with a selection, its start.
    [[nodiscard]] int SelStart() const override;
    void setSelStart(int caret) override;

Q_SIGNALS:
    /// A choice by mouse, key or code; `ListIndex` says which.
    void clicked();
    /// Codes as in `KeyCode`; setting `keyCode` to 0 swallows the key. `shift` as `shiftStateOf` gives it.
    void keyDown(int& keyCode, int shift);
    /// Only for keys that went down here, and once for one that was held. A key that neither types nor moves
    /// the caret has none while an entry is chosen; nor has one that only moves it where several entries look
    /// like the chosen one, since a search would hand over the first of them.
    void keyUp(int keyCode, int shift);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    /// Turns only with the focus, so that scrolling past changes no choice.
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Shows the entry and fires, whatever was chosen before.
    void choose(int index);
    /// Up or down the list; stops at its ends and fires nothing there.
    void step(int by);
    /// False when no entry begins with the text.
    bool chooseNext(const QString& beginning);
    void forgetChoice();
    void returnToChoice();
    [[nodiscard]] bool looksLikeAnother() const;

    ItemModel* m_items;
    int m_listIndex = -1;
    int m_inForce = -1; ///< Chosen last, also when the text was typed over since.
    bool m_alwaysChosen = false;
    bool m_clicked = false; ///< The line of a list only was pressed.
    PressedKeys m_pressed{*this};
};

} // namespace tarnwell
