#include "controls/AccessibleName.h"

#include "controls/DayArrows.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

namespace tarnwell {

QString spokenCaption(const QString& caption) {
    QString words;
    for (qsizetype at = 0; at < caption.size(); ++at) {
        if (caption[at] == u'&')
            ++at;
        if (at < caption.size())
            words += caption[at];
    }
    words = words.trimmed();
    if (words.endsWith(u':'))
        words.chop(1);
    return words;
}

void setSpokenName(QWidget& control, const QString& caption) {
    const QString name = spokenCaption(caption);
    control.setAccessibleName(name);
    if (QWidget* editor = control.focusProxy())
        editor->setAccessibleName(name);
    if (auto* combo = qobject_cast<QComboBox*>(&control)) {
        combo->view()->setAccessibleName(name);
        if (combo->lineEdit() != nullptr)
            combo->lineEdit()->setAccessibleName(name);
    }
    for (auto* arrows : control.findChildren<DayArrows*>())
        arrows->setAccessibleName(QStringLiteral("%1, a day on or back").arg(name));
}

void setSpokenNamesOfButtons(QWidget& form) {
    for (auto* button : form.findChildren<QAbstractButton*>())
        if (button->accessibleName().isEmpty() && button->text().endsWith(u':'))
            button->setAccessibleName(spokenCaption(button->text()));
}

void setSpokenCaption(QWidget& figure, const QString& caption) {
    figure.setAccessibleDescription(spokenCaption(caption));
}

} // namespace tarnwell
