#pragma once

#include <QObject>

namespace tarnwell {

/// F1 opens the help page of the window in front, by its objectName, wherever the focus is.
class HelpKey : public QObject {
    Q_OBJECT

public:
    /// Watches the whole application for as long as it lives.
    explicit HelpKey(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// Sends F1 to the application, as if the key had been pressed.
void sendHelpKey();

} // namespace tarnwell
