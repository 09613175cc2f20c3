#include "controls/SingleLine.h"

#include <QLineEdit>
#include <QValidator>

#include <algorithm>
#include <iterator>

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
class SingleLineValidator : public QValidator {
public:
    explicit SingleLineValidator(QLineEdit& line) : QValidator(&line), m_known(line.text()) {}

    State validate(QString& text, int& caret) const override {
        const auto [known, front] =
            std::mismatch(m_known.cbegin(), m_known.cend(), text.cbegin(), text.cend());
        const auto back = std::mismatch(m_known.crbegin(), std::make_reverse_iterator(known), text.crbegin(),
                                        std::make_reverse_iterator(front))
                              .second.base();
        const qsizetype from = front - text.cbegin();
        const QString came(front, back - front);
        if (std::any_of(came.cbegin(), came.cend(), isBreak)) {
            QString line = joined(came);
            if (back == text.cend() && isBreak(came.back()))
                line.chop(1);
            const qsizetype into = std::clamp<qsizetype>(caret - from, 0, came.size());
            caret += static_cast<int>(std::min(joined(came.left(into)).size(), line.size()) - into);
            text.replace(from, came.size(), line);
        }
        m_known = text;
        return Acceptable;
    }

private:
    mutable QString m_known; ///< The text before the change at hand. The toolkit asks through const calls.
};

} // namespace

void keepOnOneLine(QLineEdit& line) {
    line.setValidator(new SingleLineValidator(line));
}

} // namespace tarnwell
