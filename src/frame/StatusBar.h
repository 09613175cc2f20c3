#pragma once

#include <QLabel>
#include <QStatusBar>
#include <QTimer>

namespace tarnwell {

/// A label that shortens a text that is too long for it and puts dots at its end. `text()` is the whole text.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// `StatusBar1` with its three panels: free text, "CAPS" while Caps Lock is on, the clock.
class StatusBar : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent = nullptr);

    /// The free text of the first panel; the other two panels update themselves.
    void setText(const QString& text);
    [[nodiscard]] QString text() const { return m_text->text(); }

private:
    void showTime();
    void showCapsLock();

    ElidedLabel* m_text;
    QLabel* m_capsLock;
    QLabel* m_clock;
    QTimer m_nextMinute; ///< Fires once, at the turn of the minute.
};

} // namespace tarnwell
