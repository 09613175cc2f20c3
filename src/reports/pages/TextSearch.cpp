#include "reports/pages/TextSearch.h"

#include <QList>

#include <algorithm>
#include <numeric>

namespace tarnwell {

namespace {

bool isAscii(const QString& text) {
    constexpr char16_t firstBeyond = 0x80;
    return std::ranges::all_of(text, [](QChar letter) { return letter.unicode() < firstBeyond; });
}

/// A text without case and accents, and where its letters come from.
struct Folded {
    QString text;
    std::vector<qsizetype> origins; ///< Of each letter in the text before, and behind them that text's size.
};

QString foldedLetter(const QString& letter) {
    QString folded = letter.normalized(QString::NormalizationForm_D).toCaseFolded();
    folded.removeIf([](QChar part) { return part.category() == QChar::Mark_NonSpacing; });
    return folded;
}

Folded fold(const QString& text) {
    Folded folded;
    for (qsizetype at = 0; at < text.size();) {
        const bool isPair = text[at].isHighSurrogate() && at + 1 < text.size();
        const QString letter = foldedLetter(text.mid(at, isPair ? 2 : 1));
        folded.text += letter;
        folded.origins.insert(folded.origins.end(), static_cast<std::size_t>(letter.size()), at);
        at += isPair ? 2 : 1;
    }
    folded.origins.push_back(text.size());
    return folded;
}

/// Letters that stand for themselves.
Folded unchanged(const QString& text) {
    Folded same{text, std::vector<qsizetype>(static_cast<std::size_t>(text.size()) + 1)};
    std::iota(same.origins.begin(), same.origins.end(), 0);
    return same;
}

} // namespace

TextSearch::TextSearch(const QString& text, Qt::CaseSensitivity letters)
    : m_text(letters == Qt::CaseSensitive ? text : fold(text).text), m_letters(letters) {}

bool TextSearch::isIn(const QString& where) const {
    if (m_text.isEmpty())
        return false;
    // Nearly every text of a report needs no folding.
    if (m_letters == Qt::CaseSensitive || isAscii(where))
        return where.contains(m_text, m_letters);
    return fold(where).text.contains(m_text);
}

std::vector<TextSearch::Place> TextSearch::placesIn(const QString& where) const {
    std::vector<Place> places;
    if (m_text.isEmpty())
        return places;
    const Folded read = m_letters == Qt::CaseSensitive ? unchanged(where) : fold(where);
    for (qsizetype at = read.text.indexOf(m_text); at >= 0;
         at = read.text.indexOf(m_text, at + m_text.size())) {
        const qsizetype from = read.origins[static_cast<std::size_t>(at)];
        places.push_back({from, read.origins[static_cast<std::size_t>(at + m_text.size())] - from});
    }
    return places;
}

} // namespace tarnwell
