#pragma once

#include <QListWidget>

namespace tarnwell {

/// A list of lines with a number behind each (in Qt::UserRole).
class ListBox : public QListWidget {
    Q_OBJECT

public:
    enum class Pitch { Proportional, Fixed };
    explicit ListBox(Pitch pitch = Pitch::Proportional, QWidget* parent = nullptr);

    void AddItem(const QString& text, qint64 itemData = 0);
    void Clear();
    [[nodiscard]] int ListCount() const { return count(); }
    /// The current and selected line, or -1.
    [[nodiscard]] int ListIndex() const;
    /// Fires `clicked`, also when the index stays the same.
    void setListIndex(int index);
    [[nodiscard]] qint64 ItemData(int index) const;

Q_SIGNALS:
    void clicked();
    /// A double click on a line, or Enter.
    void doubleClick();
};

/// "Courier New" or a font of the same metrics, at the desktop's size.
[[nodiscard]] QFont fixedPitchFont();

} // namespace tarnwell
