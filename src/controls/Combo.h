#pragma once

#include "frame/modGeneral.h"

#include <QComboBox>

namespace tarnwell {

/// A drop-down combo with a typed text and item data. Every choice, by mouse, key or code, fires `clicked`,
/// also when the index stays the same.
class Combo : public QComboBox, public SearchableList {
    Q_OBJECT

public:
    explicit Combo(QWidget* parent = nullptr);

    void AddItem(const QString& text, qint64 itemData = 0, int at = -1);
    void Clear();
    [[nodiscard]] int ListCount() const override { return count(); }
    [[nodiscard]] QString List(int index) const override { return itemText(index); }
    [[nodiscard]] int ListIndex() const { return m_listIndex; }
    void setListIndex(int index) override;
    /// Raises InvalidProperty (380) for an index that is not in the list.
    [[nodiscard]] qint64 ItemData(int index) const;
    [[nodiscard]] QString Text() const override { return currentText(); }
    void setText(const QString& text);
    [[nodiscard]] int SelStart() const override;
    void setSelStart(int caret) override;

Q_SIGNALS:
    void clicked();
    void keyDown(int& keyCode, int shift);
    void keyUp(int keyCode, int shift);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int m_listIndex = -1;
};

} // namespace tarnwell
