#pragma once

#include <QString>

class QAction;
class QWidget;

namespace tarnwell {

/// One of the preview's tools: its picture, caption, tool tip and keys, from one table. The action is a child
/// of `window` and named `name` ("ZoomIn"); its keys work wherever the focus is.
[[nodiscard]] QAction* makePreviewTool(const QString& name, QWidget* window);

} // namespace tarnwell
