#include "controls/Label.h"

namespace tarnwell {

namespace {

/// The text without the mark of its mnemonic; a doubled mark stands for itself.
QString withoutMnemonic(const QString& text) {
    QString plain;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u'&' && ++at == text.size())
            break;
        plain += text[at];
    }
    return plain;
}

} // namespace

QLabel* label(const QString& text, const QString& name, QWidget* buddy) {
    auto* made = new QLabel(text);
    made->setObjectName(name);
    made->setTextFormat(Qt::PlainText);
    if (buddy == nullptr)
        return made;
    made->setBuddy(buddy);
    const QString accessibleName = withoutMnemonic(text);
    buddy->setAccessibleName(accessibleName);
    if (QWidget* editor = buddy->focusProxy())
        editor->setAccessibleName(accessibleName);
    return made;
}

QLabel* fieldLabel(int index, const QString& text, QWidget* buddy) {
    return label(text, QStringLiteral("lblFieldLabel(%1)").arg(index), buddy);
}

} // namespace tarnwell
