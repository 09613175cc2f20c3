#include "reports/pages/PageItems.h"

#include "data/RunTimeError.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace tarnwell {

namespace {

namespace mark {
constexpr quint32 line = 1;
constexpr quint32 landscape = 2;
constexpr quint32 wideText = 4; ///< In UTF-16, else in Latin-1.
constexpr quint32 newLook = 8;  ///< Its look follows, else it has the one of the text before.
constexpr quint32 bold = 16;
constexpr quint32 pageTotal = 32;
constexpr quint32 flag2 = 64;
constexpr quint32 limited = 128; ///< The width that it may take follows.
} // namespace mark

/// What both kinds begin with; the text or the line's record follows.
struct ItemHead {
    qint32 length; ///< Characters of a text, width of a line.
    qint16 x;
    qint16 y;
    quint32 marks;
};

struct LineEnd {
    qint16 x;
    qint16 y;
};

/// The font's name follows, in UTF-16.
struct LookRecord {
    qint32 fontSize;
    quint32 backColor;
    quint32 foreColor;
    qint32 fontNameLength;
    quint32 marks;
};

/// A record goes into the file as it lies in memory, so each of its bytes must belong to a member: padding
/// would carry whatever stood on the stack before.
template <class Record>
concept WholeRecord =
    std::is_trivially_copyable_v<Record> && std::has_unique_object_representations_v<Record>;

quint32 markIf(bool condition, quint32 mark) {
    return condition ? mark : 0;
}

quint32 lying(Orientation orientation) {
    return markIf(orientation == Orientation::Landscape, mark::landscape);
}

Orientation orientationOf(quint32 marks) {
    return (marks & mark::landscape) != 0 ? Orientation::Landscape : Orientation::Portrait;
}

bool isSameLook(const TextLook& a, const TextLook& b) {
    return a.Bold == b.Bold && a.FontSize == b.FontSize && a.PageTotal == b.PageTotal &&
           a.BackColor == b.BackColor && a.ForeColor == b.ForeColor && a.Flag2 == b.Flag2 &&
           a.FontName == b.FontName;
}

bool isLatin1(const QString& text) {
    return std::ranges::all_of(text, [](QChar letter) { return letter.unicode() <= 0xFF; });
}

/// Copies of plain records and characters from the front of some bytes.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : m_rest(bytes) {}

    [[nodiscard]] bool atEnd() const { return m_rest.isEmpty(); }

    template <WholeRecord Record>
    [[nodiscard]] Record take() {
        Record record;
        std::memcpy(&record, takeBytes(sizeof record), sizeof record);
        return record;
    }

    [[nodiscard]] QString takeText(qsizetype length, bool isWide) {
        if (length < 0)
            raise(Failure::DatabaseForeign);
        const auto size = static_cast<std::size_t>(length) * (isWide ? sizeof(QChar) : 1);
        const char* bytes = takeBytes(size);
        if (!isWide)
            return QString::fromLatin1(bytes, length);
        QString text(length, Qt::Uninitialized);
        std::memcpy(text.data(), bytes, size);
        return text;
    }

private:
    const char* takeBytes(std::size_t size) {
        const auto length = static_cast<qsizetype>(size);
        if (m_rest.size() < length)
            raise(Failure::DatabaseForeign);
        const char* bytes = m_rest.data();
        m_rest = m_rest.sliced(length);
        return bytes;
    }

    QByteArrayView m_rest;
};

template <WholeRecord Record>
void appendRecord(QByteArray& bytes, const Record& record) {
    bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
}

void appendWide(QByteArray& bytes, const QString& text) {
    bytes.append(reinterpret_cast<const char*>(text.constData()), text.size() * qsizetype{sizeof(QChar)});
}

void appendLatin1(QByteArray& bytes, const QString& text) {
    const qsizetype before = bytes.size();
    bytes.resize(before + text.size());
    std::ranges::transform(text, bytes.data() + before,
                           [](QChar letter) { return static_cast<char>(letter.unicode()); });
}

void appendLook(QByteArray& bytes, const TextLook& look) {
    appendRecord(bytes, LookRecord{look.FontSize, look.BackColor, look.ForeColor,
                                   static_cast<qint32>(look.FontName.size()),
                                   markIf(look.Bold, mark::bold) | markIf(look.PageTotal, mark::pageTotal) |
                                       markIf(look.Flag2, mark::flag2)});
    appendWide(bytes, look.FontName);
}

TextLook takeLook(Reader& reader) {
    const auto record = reader.take<LookRecord>();
    return {.Bold = (record.marks & mark::bold) != 0,
            .FontSize = record.fontSize,
            .FontName = reader.takeText(record.fontNameLength, true),
            .PageTotal = (record.marks & mark::pageTotal) != 0,
            .BackColor = record.backColor,
            .ForeColor = record.foreColor,
            .Flag2 = (record.marks & mark::flag2) != 0};
}

} // namespace

QString textOnPage(const PageText& text, qint64 pageCount) {
    return text.look.PageTotal ? text.text + QLatin1Char(' ') + QString::number(pageCount) : text.text;
}

void ItemBytes::add(const PageText& text) {
    const bool isWide = !isLatin1(text.text);
    const bool isNew = !m_look || !isSameLook(*m_look, text.look);
    appendRecord(m_bytes, ItemHead{static_cast<qint32>(text.text.size()), text.x, text.y,
                                   lying(text.orientation) | markIf(isWide, mark::wideText) |
                                       markIf(isNew, mark::newLook) | markIf(text.width > 0, mark::limited)});
    if (text.width > 0)
        appendRecord(m_bytes, text.width);
    if (isNew) {
        appendLook(m_bytes, text.look);
        m_look = text.look;
    }
    if (isWide)
        appendWide(m_bytes, text.text);
    else
        appendLatin1(m_bytes, text.text);
}

void ItemBytes::add(const PageLine& line) {
    appendRecord(m_bytes, ItemHead{line.width, line.x1, line.y1, lying(line.orientation) | mark::line});
    appendRecord(m_bytes, LineEnd{line.x2, line.y2});
}

void ItemBytes::clear() {
    m_bytes.truncate(0); // keeps its memory for the next page
    m_look.reset();
}

void readItems(QByteArrayView items, qint64 number, PageItems& page) {
    TextLook look;
    for (Reader reader(items); !reader.atEnd();) {
        const auto head = reader.take<ItemHead>();
        const Orientation orientation = orientationOf(head.marks);
        if (page.texts.empty() && page.lines.empty())
            page.orientation = orientation;
        if ((head.marks & mark::line) != 0) {
            const auto end = reader.take<LineEnd>();
            page.lines.push_back({head.x, head.y, end.x, end.y, number, orientation, head.length});
            continue;
        }
        const qint16 width = (head.marks & mark::limited) != 0 ? reader.take<qint16>() : qint16{0};
        if ((head.marks & mark::newLook) != 0)
            look = takeLook(reader);
        page.texts.push_back({head.x, head.y,
                              reader.takeText(head.length, (head.marks & mark::wideText) != 0), number,
                              orientation, look, width});
    }
}

} // namespace tarnwell
