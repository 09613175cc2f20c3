#pragma once

#include "data/Value.h"

#include <QWidget>

class QLineEdit;

namespace tarnwell {

/// A date typed as mm/dd/yy, with up and down arrows on demand. One QLineEdit inside takes the focus.
class DateBox : public QWidget {
    Q_OBJECT

public:
    enum class Arrows { None, Beside };
    explicit DateBox(Arrows arrows, QWidget* parent = nullptr);

    /// Null when empty, the date when the text is one, else the text as typed.
    [[nodiscard]] Value value() const;
    void setValue(const Value& value);
    [[nodiscard]] QString text() const;
    void setText(const QString& text);
    /// A day on or back; raises TypeMismatch (13) when the text is no date; nothing when it is empty.
    void addDays(int days);
    [[nodiscard]] QLineEdit* edit() const { return m_edit; }

Q_SIGNALS:
    void changed();

private:
    QLineEdit* m_edit;
};

} // namespace tarnwell
