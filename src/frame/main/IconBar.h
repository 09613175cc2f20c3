#pragma once

#include <QString>
#include <QWidget>

#include <vector>

class QLabel;

namespace tarnwell {

class IconBarButton;

/// An item of the icon bar. `label` is the caption with "&" in front of the letter that Alt opens it with.
struct IconBarItem {
    QString key;
    QString caption;
    QString label;
    QString toolTip;
    QString imageKey;
};

/// A bar of large labelled icons, one below the other, under a caption. Each item is a `QToolButton` named by
/// its key; Tab, the cursor keys, Home and End move between them, Enter, Space or the underlined letter press
/// them, and a click leaves the focus where it is.
class IconBar : public QWidget {
    Q_OBJECT

public:
    explicit IconBar(QWidget* parent = nullptr);

    /// The caption above the items; also the bar's accessible name.
    void setGroup(const QString& caption, const QString& toolTip);
    /// Adds an enabled item below the others.
    void addItem(const IconBarItem& item);
    /// A disabled item is shown pale, keeps its tool tip and is skipped by the keys. An unknown key changes
    /// nothing.
    void setItemEnabled(const QString& key, bool enabled);
    /// Gives the focus to the first enabled item from `position` (0 is the first) on.
    void focusFirst(int position);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// By mouse, key or underlined letter.
    void itemClicked(const QString& key);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Whether the key was one of the bar's own.
    [[nodiscard]] bool handleKey(IconBarButton* from, int key);
    /// The first enabled item from the position on, in the direction of the step.
    void focusFrom(int position, int step);

    QLabel* m_caption;
    std::vector<IconBarButton*> m_buttons;
};

} // namespace tarnwell
