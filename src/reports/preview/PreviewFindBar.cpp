#include "reports/preview/PreviewFindBar.h"

#include "controls/Label.h"
#include "look/Icons.h"
#include "look/Theme.h"
#include "runtime/EventGuard.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace tarnwell {

namespace {

constexpr int textWidth = 260;
constexpr int gap = 6;
constexpr QColor failureColor(208, 48, 48);
constexpr double failureShare = 0.75; ///< In the colour of text, so that it can be read on any background.

} // namespace

PreviewFindBar::PreviewFindBar(QWidget* parent)
    : QWidget(parent), m_text(new QLineEdit(this)), m_letters(new QCheckBox(this)),
      m_result(new QLabel(this)) {
    setObjectName(QStringLiteral("findBar"));
    m_text->setObjectName(QStringLiteral("txtFind"));
    m_text->setClearButtonEnabled(true);
    m_text->setMinimumWidth(textWidth);
    m_text->installEventFilter(this);
    m_letters->setObjectName(QStringLiteral("chkMatchCase"));
    m_letters->setText(QStringLiteral("&Match case"));
    m_result->setObjectName(QStringLiteral("lblFindResult"));
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(gap, gap, gap, gap);
    line->setSpacing(gap);
    line->addWidget(label(QStringLiteral("Find &text:"), QStringLiteral("lblFind"), m_text));
    line->addWidget(m_text);
    m_previous = addButton(QStringLiteral("FindPrevious"), QStringLiteral("PRecord"),
                           QStringLiteral("Previous hit"), QStringLiteral("Previous hit (Shift+F3)"));
    m_next = addButton(QStringLiteral("FindNext"), QStringLiteral("NRecord"), QStringLiteral("Next hit"),
                       QStringLiteral("Next hit (F3)"));
    line->addWidget(m_letters);
    line->addSpacing(gap);
    line->addWidget(m_result, 1);
    auto* close = addButton(QStringLiteral("CloseFind"), QStringLiteral("Close"),
                            QStringLiteral("Close find"), QStringLiteral("Close the find line (Esc)"));
    setFocusProxy(m_text);
    connect(m_text, &QLineEdit::textChanged, this, &PreviewFindBar::searchChanged);
    connect(m_letters, &QCheckBox::toggled, this, &PreviewFindBar::searchChanged);
    connect(m_previous, &QToolButton::clicked, this, [this] { Q_EMIT stepWanted(-1); });
    connect(m_next, &QToolButton::clicked, this, [this] { Q_EMIT stepWanted(1); });
    connect(close, &QToolButton::clicked, this, &PreviewFindBar::closeWanted);
    setResult({}, false);
}

QToolButton* PreviewFindBar::addButton(const QString& name, const QString& image, const QString& text,
                                       const QString& toolTip) {
    auto* button = new QToolButton(this);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setIcon(toolbarIcon(image));
    button->setText(text);
    button->setToolTip(toolTip);
    layout()->addWidget(button);
    return button;
}

void PreviewFindBar::open() {
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

PageSearch PreviewFindBar::search() const {
    return {m_text->text(), m_letters->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive};
}

void PreviewFindBar::setResult(const QString& text, bool missing) {
    m_result->setText(text);
    QPalette colors = palette();
    if (missing)
        colors.setColor(QPalette::WindowText,
                        mixed(palette().color(QPalette::WindowText), failureColor, failureShare));
    m_result->setPalette(colors);
    m_previous->setEnabled(!text.isEmpty() && !missing);
    m_next->setEnabled(!text.isEmpty() && !missing);
}

bool PreviewFindBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    Q_EMIT stepWanted(key->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
    return true;
}

} // namespace tarnwell
