#pragma once

#include "frame/main/IconBar.h"

#include <QToolButton>

namespace tarnwell {

/// One item: a large icon with its label beside it, drawn flat in the palette's colours. `text()` is the
/// caption alone; the label's underlined letter shows only on the screen.
class IconBarButton : public QToolButton {
    Q_OBJECT

public:
    IconBarButton(const IconBarItem& item, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintBackground(QPainter& painter) const;

    QString m_label;
};

} // namespace tarnwell
