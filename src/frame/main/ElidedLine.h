#pragma once

#include <QLabel>

namespace tarnwell {

/// A line that is shortened where it has no place, and then has the whole text as its tool tip.
class ElidedLine : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLine(Qt::TextElideMode shortenedAt) : m_shortenedAt(shortenedAt) {}

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    [[nodiscard]] QString shownText() const;

    Qt::TextElideMode m_shortenedAt;
};

} // namespace tarnwell
