#pragma once

#include <QString>

#include <vector>

namespace tarnwell {

/// Looks for one text in others. Unless case counts, neither case nor accents matter on either side: "munoz"
/// and "MUÑÓZ" find "Muñoz".
class TextSearch {
public:
    /// A part of the text that was looked through.
    struct Place {
        qsizetype from;
        qsizetype size;
        friend bool operator==(const Place&, const Place&) = default;
    };

    TextSearch(const QString& text, Qt::CaseSensitivity letters);

    [[nodiscard]] bool isIn(const QString& where) const;
    /// From left to right, none over another; none for an empty text.
    [[nodiscard]] std::vector<Place> placesIn(const QString& where) const;

private:
    QString m_text; ///< Without case and accents unless case counts.
    Qt::CaseSensitivity m_letters;
};

} // namespace tarnwell
