#include "frame/MessagePresenter.h"

#include "runtime/MousePointer.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include <array>

namespace tarnwell {

namespace {

/// In the order of `Answer`. The toolkit would translate and decorate its own captions.
struct AnswerButton {
    Answer answer;
    QMessageBox::StandardButton button;
    const char* caption;
};

constexpr std::array<AnswerButton, 4> answerButtons{{
    {Answer::Ok, QMessageBox::Ok, "OK"},
    {Answer::Cancel, QMessageBox::Cancel, "Cancel"},
    {Answer::Yes, QMessageBox::Yes, "&Yes"},
    {Answer::No, QMessageBox::No, "&No"},
}};

const AnswerButton& buttonOf(Answer answer) {
    return answerButtons[static_cast<std::size_t>(answer)];
}

QMessageBox::Icon toolkitIcon(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// A short text must not cut a longer title. The box fixes its size by its layout, which has to ask for the
/// width; desktops write titles bold, between an icon and up to three buttons.
void widenForTitle(QMessageBox& box) {
    constexpr int decorations = 110;
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr)
        return;
    QFont font = box.font();
    font.setBold(true);
    const int width = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + decorations;
    grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

void fill(QMessageBox& box, const MessageRequest& request) {
    box.setObjectName(QStringLiteral("msgBox"));
    box.setWindowTitle(request.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(request.text);
    box.setIcon(toolkitIcon(request.icon));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    const auto answers = answersOf(request.buttons);
    for (const Answer answer : answers) {
        QPushButton* button = box.addButton(buttonOf(answer).button);
        button->setText(QLatin1String(buttonOf(answer).caption));
        button->setIcon({});
    }
    box.setDefaultButton(buttonOf(defaultAnswer(request)).button);
    box.setEscapeButton(buttonOf(answers.back()).button);
    widenForTitle(box);
}

void showMousePointer(bool hourGlass) {
    if (hourGlass)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace

Answer presentMessage(const MessageRequest& request) {
    // The window in front may be closed while the message waits, and the box is deleted with it.
    const QPointer<QMessageBox> box = new QMessageBox(QApplication::activeWindow());
    fill(*box, request);
    const int chosen = box->exec();
    delete box.data();
    for (const AnswerButton& each : answerButtons)
        if (each.button == chosen)
            return each.answer;
    return answersOf(request.buttons).back();
}

void installPresenters() {
    setMessagePresenter(presentMessage);
    setMousePointerPresenter(showMousePointer);
}

} // namespace tarnwell
