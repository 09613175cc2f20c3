#pragma once

#include "data/Value.h"

#include <QWidget>

class QLineEdit;

namespace tarnwell {

class DayArrows;

/// A date typed as mm/dd/yy; the Up and Down keys, and arrows on demand, go a day on and back. One QLineEdit
/// inside takes the focus.
class DateBox : public QWidget {
    Q_OBJECT

public:
    enum class Arrows { None, Beside };
    explicit DateBox(Arrows arrows, QWidget* parent = nullptr);

    /// Null when empty, the date when the text is one, else the text as typed. A date that was set and not
    /// typed over comes back whole, with its century and its time.
    [[nodiscard]] Value value() const;
    /// Empty and Null show nothing; a text shows as it is.
    void setValue(const Value& value);
    /// What stands in the box, as typed.
    [[nodiscard]] QString text() const;
    void setText(const QString& text);
    /// On or back; raises TypeMismatch (13) when the text is not a date. Does nothing when it is empty, nor
    /// beyond the years 1 to 9999.
    void addDays(int days);
    /// The box's own; for its name and its limits.
    [[nodiscard]] QLineEdit* edit() const { return m_edit; }

Q_SIGNALS:
    /// The text changed, by key, arrow or code.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void turn(int days);

    QLineEdit* m_edit;
    DateTime m_date; ///< What was set, as long as the text is still its own.
    QString m_dateText;
};

} // namespace tarnwell
