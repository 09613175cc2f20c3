#include "look/ProgramStyle.h"

#include "look/Theme.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QStyleOption>

namespace tarnwell {

namespace {

/// Added to the style's own.
constexpr QSize buttonSpace(10, 2);
constexpr int headerSpace = 3;
constexpr double enabledLine = 0.5, disabledLine = 0.2;

/// The style draws these in a darker shade of the window, which a dark window swallows.
void outline(QPainter& painter, const QStyleOption& option, bool isRound) {
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    painter.save();
    painter.setPen(mixed(option.palette.color(QPalette::Window),
                         option.palette.color(QPalette::Active, QPalette::WindowText),
                         enabled ? enabledLine : disabledLine));
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing, isRound);
    if (isRound)
        painter.drawEllipse(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5));
    else
        painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

/// A list or grid that has the keyboard and no line yet that could show it.
bool isBareWithFocus(const QStyleOption& option, const QWidget* widget) {
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    return view != nullptr && option.state.testFlag(QStyle::State_HasFocus) &&
           !view->currentIndex().isValid();
}

void frameFocus(QPainter& painter, const QStyleOption& option) {
    painter.save();
    painter.setPen(markColor(option.palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

} // namespace

ProgramStyle::ProgramStyle() : m_isPlain(baseStyle()->name() == QStringLiteral("fusion")) {}

void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    SharedPaletteStyle::drawPrimitive(element, option, painter, widget);
    const bool isRound = element == PE_IndicatorRadioButton;
    if (m_isPlain && (isRound || element == PE_IndicatorCheckBox) &&
        isDark(option->palette.color(QPalette::Window)))
        outline(*painter, *option, isRound);
    if (m_isPlain && element == PE_Frame && isBareWithFocus(*option, widget))
        frameFocus(*painter, *option);
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int own = SharedPaletteStyle::pixelMetric(metric, option, widget);
    return m_isPlain && metric == PM_HeaderMargin ? own + headerSpace : own;
}

QSize ProgramStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                     const QWidget* widget) const {
    const bool isButton = m_isPlain && type == CT_PushButton;
    return SharedPaletteStyle::sizeFromContents(type, option, isButton ? contents + buttonSpace : contents,
                                                widget);
}

} // namespace tarnwell
