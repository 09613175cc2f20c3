#pragma once

#include "controls/EmptyHint.h"
#include "controls/ItemModel.h"
#include "controls/PressedKeys.h"

#include <QListWidget>

#include <utility>

namespace tarnwell {

/// A list of lines with a number behind each (in Qt::UserRole).
class ListBox : public QListWidget {
    Q_OBJECT

public:
    /// Fixed: lines whose columns are made of blanks stand one below the other.
    enum class Pitch { Proportional, Fixed };
    explicit ListBox(Pitch pitch = Pitch::Proportional, QWidget* parent = nullptr);

    /// Lines that are wider than the list are read by a scroll bar below it, and by Left and Right. For lists
    /// of some hundred lines: every one is measured.
    void setScrollsSideways();

    /// Shown while the list has no lines.
    void setEmptyHint(EmptyHint hint) { m_emptyHint = std::move(hint); }

    /// A line at the end; what is chosen does not change.
    void AddItem(const QString& text, qint64 itemData = 0);
    /// Replaces all lines and repaints once; nothing is chosen then.
    void setItems(const std::vector<ListItem>& items);
    /// The same list as it is by now: lines are known by the number behind them, and among lines of one
    /// number by their order. What is marked, the current line and the place in the window stay where that
    /// line is still there. Fires nothing, and does nothing when the lines are the same.
    void showChangedItems(const std::vector<ListItem>& items);
    void Clear();
    [[nodiscard]] int ListCount() const { return count(); }
    /// The current and selected line, or -1.
    [[nodiscard]] int ListIndex() const;
    /// Fires `clicked`, also when the index stays the same. -1 takes the choice away. Raises InvalidProperty
    /// (380) for an index that is not in the list. An error of the click routine comes back here.
    void setListIndex(int index);
    /// Raises InvalidPropertyIndex (381) for an index that is not in the list.
    [[nodiscard]] qint64 ItemData(int index) const;
    /// Typed letters look for the line that begins with them.
    void keyboardSearch(const QString& search) override;

Q_SIGNALS:
    /// A choice by mouse, key or code.
    void clicked();
    /// A double click on a line, or Enter.
    void doubleClick();
    /// Only for keys that went down here, and once for one that was held.
    void keyUp(int keyCode, int shift);

protected:
    /// Where several lines can be marked, only a click or Space marks one, never the search for it.
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool chooseFirst(int key);
    bool scrollSideways(int key);

    PressedKeys m_pressed{*this};
    EmptyHint m_emptyHint;
};

/// "Courier New" or a font of the same metrics, at the desktop's size.
[[nodiscard]] QFont fixedPitchFont();

} // namespace tarnwell
