#pragma once

#include <QObject>

namespace tarnwell {

/// Keeps Alt with a letter that is no shortcut of the window from typing. The toolkit would put the letter
/// into the field, and it would be stored with the record.
class AltLetterFilter : public QObject {
    Q_OBJECT

public:
    /// Watches the whole application for as long as it lives.
    explicit AltLetterFilter(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarnwell
