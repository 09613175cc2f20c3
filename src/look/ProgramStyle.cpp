#include "look/ProgramStyle.h"

#include "look/Contrast.h"
#include "look/Icons.h"
#include "look/PaletteSwap.h"
#include "look/Theme.h"

#include <QAbstractItemView>
#include <QIcon>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOption>

#include <algorithm>
#include <array>

namespace tarnwell {

namespace {

/// Added to the style's own.
constexpr QSize buttonSpace(10, 2);
constexpr int headerSpace = 3;
/// At the usual size of text.
constexpr int tickSide = 14, messageIconSide = 40;

constexpr std::array outlinedControls{QStyle::CC_ComboBox, QStyle::CC_SpinBox};
constexpr std::array outlinedParts{QStyle::PE_FrameLineEdit,      QStyle::PE_Frame,
                                   QStyle::PE_IndicatorCheckBox,  QStyle::PE_IndicatorRadioButton,
                                   QStyle::PE_PanelButtonCommand, QStyle::PE_IndicatorItemViewItemCheck};

template <typename List, typename Part>
bool holds(const List& list, Part part) {
    return std::ranges::find(list, part) != list.end();
}

/// A list, grid or note that has the keyboard, and no line of its own that shows it.
bool isBareWithFocus(const QStyleOption& option, const QWidget* widget) {
    if (widget == nullptr || !option.state.testFlag(QStyle::State_HasFocus))
        return false;
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    return view == nullptr ? widget->inherits("QAbstractScrollArea") : !view->currentIndex().isValid();
}

void frameFocus(QPainter& painter, const QStyleOption& option) {
    painter.save();
    painter.setPen(markColor(option.palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

/// The images of messages; empty for another one.
QString messageKind(QStyle::StandardPixmap icon) {
    switch (icon) {
    case QStyle::SP_MessageBoxInformation:
        return QStringLiteral("Information");
    case QStyle::SP_MessageBoxQuestion:
        return QStringLiteral("Question");
    case QStyle::SP_MessageBoxWarning:
        return QStringLiteral("Warning");
    case QStyle::SP_MessageBoxCritical:
        return QStringLiteral("Critical");
    default:
        return {};
    }
}

} // namespace

ProgramStyle::ProgramStyle() : m_isPlain(baseStyle()->name() == QStringLiteral("fusion")) {}

/// The plain style takes its outlines from the window's colour, each a shade darker, and a dark window
/// swallows them. It is handed the window's colour of which that shade is the outline.
QPalette ProgramStyle::outlined(const QStyleOption& option) const {
    constexpr int shade = 140; // In percent, as the style darkens.
    if (!isDark(option.palette.color(QPalette::Window)) && !isHighContrast(option.palette))
        return option.palette;
    const bool isQuiet = !option.state.testFlag(State_Enabled) || option.state.testFlag(State_ReadOnly);
    QPalette palette = option.palette;
    palette.setColor(QPalette::Window, outlineColor(option.palette, isQuiet).lighter(shade));
    return palette;
}

void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    if (!m_isPlain || m_isOutlining || option == nullptr || !holds(outlinedControls, control)) {
        SharedPaletteStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    const QScopedValueRollback<bool> outlining(m_isOutlining, true);
    const PaletteSwap palette(option, outlined(*option));
    SharedPaletteStyle::drawComplexControl(control, option, painter, widget);
}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    if (!m_isPlain || m_isOutlining || option == nullptr || !holds(outlinedParts, element)) {
        SharedPaletteStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    {
        const QScopedValueRollback<bool> outlining(m_isOutlining, true);
        const PaletteSwap palette(option, outlined(*option));
        SharedPaletteStyle::drawPrimitive(element, option, painter, widget);
    }
    if (element == PE_Frame && isBareWithFocus(*option, widget))
        frameFocus(*painter, *option);
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int own = SharedPaletteStyle::pixelMetric(metric, option, widget);
    const auto grown = [&](int pixels) {
        return widget != nullptr ? std::max(own, scaledToText(pixels, *widget)) : own;
    };
    switch (metric) {
    case PM_MessageBoxIconSize:
        return widget != nullptr ? scaledToText(messageIconSide, *widget) : own;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return m_isPlain ? grown(tickSide) : own;
    case PM_HeaderMargin:
        return m_isPlain ? own + headerSpace : own;
    default:
        return own;
    }
}

QSize ProgramStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                     const QWidget* widget) const {
    const bool isButton = m_isPlain && type == CT_PushButton;
    return SharedPaletteStyle::sizeFromContents(type, option, isButton ? contents + buttonSpace : contents,
                                                widget);
}

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
    const QString kind = messageKind(icon);
    return kind.isEmpty() ? SharedPaletteStyle::standardIcon(icon, option, widget) : messageIcon(kind);
}

} // namespace tarnwell
