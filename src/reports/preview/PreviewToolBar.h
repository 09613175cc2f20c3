#pragma once

#include <QToolBar>

#include <vector>

class QToolButton;

namespace tarnwell {

/// How wide a tool of the preview is.
enum class ToolWidth {
    Caption, ///< Has a caption while the bar is wide enough.
    Icon,
    Spare, ///< Hidden when even the icons do not fit: a key or another tool does the same.
};

/// The preview's tools, in sight at any width of the window. When it gets narrow captions go, then spare
/// tools, the last one added first; the bar keeps the window as wide as the others need.
class PreviewToolBar : public QToolBar {
    Q_OBJECT

public:
    explicit PreviewToolBar(QWidget* parent);

    /// Its button is named "btn" and the tool's name.
    void addTool(QAction* tool, ToolWidth kind);
    /// To be called when all is in the bar.
    void keepInSight();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fit();

    std::vector<QToolButton*> m_captioned;
    std::vector<QToolButton*> m_spare;
};

} // namespace tarnwell
