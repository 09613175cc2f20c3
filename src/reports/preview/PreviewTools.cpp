#include "reports/preview/PreviewTools.h"

#include "look/Icons.h"

#include <QAction>
#include <QKeySequence>
#include <QWidget>

#include <algorithm>

namespace tarnwell {

namespace {

struct Tool {
    const char* name;
    const char* image;
    const char* caption; ///< With the letter that Alt presses the button by.
    const char* hint;
    const char* keys;       ///< The tool tip names the first one.
    bool checkable = false; ///< Shows how the pages are seen.
};

constexpr Tool tools[] = {
    {"Print", "Print", "&Print", "Print the report", "Ctrl+P"},
    {"PageSetup", "PageSetup", "Page set-&up", "Choose the paper", "Ctrl+Shift+P"},
    {"SavePdf", "SavePdf", "&Save as PDF", "Save the report as a PDF file", "Ctrl+S"},
    {"FirstPage", "BFile", "First page", "First page", "Ctrl+Home"},
    {"PreviousPage", "PRecord", "Previous page", "Previous page", "Ctrl+PgUp"},
    {"NextPage", "NRecord", "Next page", "Next page", "Ctrl+PgDown"},
    {"LastPage", "EFile", "Last page", "Last page", "Ctrl+End"},
    {"ZoomOut", "ZoomOut", "Zoom out", "Smaller", "Ctrl+-"},
    {"ZoomIn", "ZoomIn", "Zoom in", "Larger", "Ctrl++; Ctrl+="},
    {"TrueSize", "", "True size", "As large as on paper", "Ctrl+0"},
    {"FitWidth", "FitWidth", "Fit width", "As wide as the window", "Ctrl+1", true},
    {"FitPage", "FitPage", "Fit page", "The whole page", "Ctrl+2", true},
    {"Single", "OnePage", "Single page", "Pages below each other", "Ctrl+3", true},
    {"Facing", "FacingPages", "Facing pages", "Pages in pairs", "Ctrl+4", true},
    {"Overview", "Overview", "Overview", "Many small pages; a click opens one", "Ctrl+5", true},
    {"Find", "Lookup", "&Find", "Find a text in the report", "Ctrl+F"},
    {"FindNextKey", "", "Find next", "Next hit", "F3"},
    {"FindPreviousKey", "", "Find previous", "Previous hit", "Shift+F3"},
    {"GoToPage", "", "Go to page", "Page to go to", "Ctrl+G"},
    {"Close", "Exit", "&Close", "Close the preview", "Ctrl+W"},
};

} // namespace

QAction* makePreviewTool(const QString& name, QWidget* window) {
    const auto* const tool =
        std::ranges::find(tools, name, [](const Tool& row) { return QLatin1String(row.name); });
    auto* action = new QAction(window);
    action->setObjectName(name);
    const QString caption = QLatin1String(tool->caption);
    action->setText(caption);
    action->setIconText(caption); // A caption of its own keeps its mnemonic on the button.
    if (*tool->image != '\0')
        action->setIcon(toolbarIcon(QLatin1String(tool->image)));
    action->setShortcuts(QKeySequence::listFromString(QLatin1String(tool->keys)));
    action->setToolTip(QStringLiteral("%1 (%2)").arg(QLatin1String(tool->hint),
                                                     action->shortcut().toString(QKeySequence::NativeText)));
    action->setCheckable(tool->checkable);
    window->addAction(action);
    return action;
}

} // namespace tarnwell
