#include "controls/OneLine.h"

#include <QLineEdit>
#include <QValidator>

#include <algorithm>

namespace tarnwell {

namespace {

bool isBreak(QChar character) {
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

/// A run of breaks as one blank.
QString joined(const QString& text) {
    QString line;
    for (qsizetype at = 0; at < text.size(); ++at)
        if (!isBreak(text[at]))
            line += text[at];
        else if (at == 0 || !isBreak(text[at - 1]))
            line += u' ';
    return line;
}

/// Refuses nothing; the one place that every way into a field comes by, and that may change what came.
class OneLine : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& caret) const override {
        if (std::none_of(text.cbegin(), text.cend(), isBreak))
            return Acceptable;
        QString line = joined(text);
        if (isBreak(text.back()))
            line.chop(1);
        caret = static_cast<int>(std::min(joined(text.left(caret)).size(), line.size()));
        text = line;
        return Acceptable;
    }
};

} // namespace

void keepOnOneLine(QLineEdit& line) {
    line.setValidator(new OneLine(&line));
}

} // namespace tarnwell
