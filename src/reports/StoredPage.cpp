#include "reports/StoredPage.h"

#include "data/RunTimeError.h"

#include <cstring>
#include <type_traits>

namespace tarnwell {

namespace {

enum class Kind : quint8 { Text, Line };
namespace mark {
constexpr quint8 landscape = 1;
constexpr quint8 bold = 2;
constexpr quint8 pageTotal = 4;
constexpr quint8 flag2 = 8;
} // namespace mark

/// Behind it follow the font's name and the text in UTF-16.
struct TextHead {
    Kind kind;
    quint8 marks;
    qint16 x;
    qint16 y;
    quint16 fontNameLength;
    qint32 fontSize;
    qint32 step;
    quint32 backColor;
    quint32 foreColor;
    qint32 length;
};

struct LineRecord {
    Kind kind;
    quint8 marks;
    qint16 x1;
    qint16 y1;
    qint16 x2;
    qint16 y2;
    qint32 width;
};

quint8 markIf(bool condition, quint8 mark) {
    return condition ? mark : quint8{0};
}

quint8 marksOf(const PageText& text) {
    const int marks = markIf(text.orientation == Orientation::Landscape, mark::landscape) |
                      markIf(text.look.Bold, mark::bold) | markIf(text.look.PageTotal, mark::pageTotal) |
                      markIf(text.look.Flag2, mark::flag2);
    return static_cast<quint8>(marks);
}

Orientation orientationOf(quint8 marks) {
    return (marks & mark::landscape) != 0 ? Orientation::Landscape : Orientation::Portrait;
}

/// Copies of plain records and characters from the front of some bytes.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : m_rest(bytes) {}

    [[nodiscard]] bool atEnd() const { return m_rest.isEmpty(); }
    [[nodiscard]] Kind nextKind() const { return static_cast<Kind>(m_rest.front()); }

    template <class Record>
    [[nodiscard]] Record take() {
        static_assert(std::is_trivially_copyable_v<Record>);
        Record record;
        std::memcpy(&record, takeBytes(sizeof record), sizeof record);
        return record;
    }

    [[nodiscard]] QString takeText(qsizetype length) {
        if (length < 0)
            raise(Failure::DatabaseForeign);
        QString text(length, Qt::Uninitialized);
        const qsizetype size = length * qsizetype{sizeof(QChar)};
        std::memcpy(text.data(), takeBytes(static_cast<std::size_t>(size)), static_cast<std::size_t>(size));
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

template <class Record>
void appendRecord(QByteArray& items, const Record& record) {
    items.append(reinterpret_cast<const char*>(&record), sizeof record);
}

void appendText(QByteArray& items, QStringView text) {
    items.append(reinterpret_cast<const char*>(text.data()), text.size() * qsizetype{sizeof(QChar)});
}

PageText takePageText(Reader& reader, qint64 number) {
    const auto head = reader.take<TextHead>();
    TextLook look{.Bold = (head.marks & mark::bold) != 0,
                  .FontSize = head.fontSize,
                  .YStep = head.step,
                  .FontName = reader.takeText(head.fontNameLength),
                  .PageTotal = (head.marks & mark::pageTotal) != 0,
                  .BackColor = head.backColor,
                  .ForeColor = head.foreColor,
                  .Flag2 = (head.marks & mark::flag2) != 0};
    QString text = reader.takeText(head.length);
    return {head.x, head.y, std::move(text), number, orientationOf(head.marks), std::move(look)};
}

PageLine takePageLine(Reader& reader, qint64 number) {
    const auto line = reader.take<LineRecord>();
    return {line.x1, line.y1, line.x2, line.y2, number, orientationOf(line.marks), line.width};
}

} // namespace

QString textOnPage(const PageText& text, qint64 pageCount) {
    return text.look.PageTotal ? text.text + QLatin1Char(' ') + QString::number(pageCount) : text.text;
}

void appendItem(QByteArray& items, const PageText& text) {
    const TextLook& look = text.look;
    appendRecord(items, TextHead{Kind::Text, marksOf(text), text.x, text.y,
                                 static_cast<quint16>(look.FontName.size()), look.FontSize, look.YStep,
                                 look.BackColor, look.ForeColor, static_cast<qint32>(text.text.size())});
    appendText(items, look.FontName);
    appendText(items, text.text);
}

void appendItem(QByteArray& items, const PageLine& line) {
    // Its padding is written too, so it must hold something.
    LineRecord record{};
    record = {Kind::Line, markIf(line.orientation == Orientation::Landscape, mark::landscape),
              line.x1,    line.y1,
              line.x2,    line.y2,
              line.width};
    appendRecord(items, record);
}

void readItems(QByteArrayView items, qint64 number, StoredPage& page) {
    for (Reader reader(items); !reader.atEnd();) {
        const bool isFirst = page.texts.empty() && page.lines.empty();
        Orientation orientation{};
        if (reader.nextKind() == Kind::Line)
            orientation = page.lines.emplace_back(takePageLine(reader, number)).orientation;
        else
            orientation = page.texts.emplace_back(takePageText(reader, number)).orientation;
        if (isFirst)
            page.orientation = orientation;
    }
}

} // namespace tarnwell
