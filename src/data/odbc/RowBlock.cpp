#include "data/odbc/RowBlock.h"

#include "data/odbc/AttributeValue.h"
#include "data/odbc/OdbcStatement.h"

#include <QStringView>

#include <array>
#include <cstring>
#include <sql.h>
#include <sqlext.h>
#include <string>
#include <string_view>

namespace tarnwell::data {

namespace {

using schema::ColumnType;

constexpr std::size_t rowsAtOnce = 64;
constexpr std::size_t bufferedLetters = 56; ///< Names fit; longer texts are asked for one by one.

template <class T>
T valueAt(const std::vector<char>& values, std::size_t row) {
    T value;
    std::memcpy(&value, values.data() + row * sizeof(T), sizeof(T));
    return value;
}

Cell wholeCell(qint64 number, std::optional<ColumnType> type) {
    if (type == ColumnType::YesNo)
        return numberCell(Value::Kind::YesNo, number != 0 ? 1 : 0);
    if (type == ColumnType::Money)
        return realCell(static_cast<double>(number));
    return numberCell(Value::Kind::Long, number);
}

Cell momentCell(const SQL_TIMESTAMP_STRUCT& stored) {
    return dateCell(
        {QDate(stored.year, stored.month, stored.day), QTime(stored.hour, stored.minute, stored.second)});
}

/// Most texts are plain, and then need no conversion of their own.
Cell utf16Cell(std::u16string_view text, TextArena& texts) {
    std::array<char, bufferedLetters> plain{};
    if (text.size() <= plain.size()) {
        std::size_t at = 0;
        for (; at < text.size() && text[at] < 128; ++at)
            plain[at] = static_cast<char>(text[at]);
        if (at == text.size())
            return textCell({plain.data(), at}, texts);
    }
    const QByteArray utf8 = QStringView(text).toUtf8();
    return textCell({utf8.constData(), static_cast<std::size_t>(utf8.size())}, texts);
}

/// The kind of the buffer for each form of a column.
template <class Form>
SQLSMALLINT bufferType(Form form) {
    static constexpr std::array<SQLSMALLINT, 4> types{SQL_C_SBIGINT, SQL_C_DOUBLE, SQL_C_TYPE_TIMESTAMP,
                                                      SQL_C_WCHAR};
    return types.at(static_cast<std::size_t>(form));
}

} // namespace

RowBlock::RowBlock(OdbcStatement& statement)
    : m_statement(statement), m_inBlocks(statement.connection()->fetchesInBlocks()) {}

void RowBlock::describe() {
    SQLSMALLINT columns = 0;
    if (!SQL_SUCCEEDED(SQLNumResultCols(m_statement.get(), &columns)))
        m_statement.raiseLast();
    m_columns.reserve(static_cast<std::size_t>(columns));
    for (int i = 0; i < columns; ++i)
        m_columns.push_back(describeColumn(i));
    m_described = true;
}

RowBlock::Column RowBlock::describeColumn(int column) {
    SQLSMALLINT type = 0;
    SQLSMALLINT scale = 0;
    SQLSMALLINT nullable = 0;
    SQLULEN size = 0;
    std::array<SQLWCHAR, 64> name{}; // the driver manager refuses to go without
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(SQLDescribeColW(m_statement.get(), static_cast<SQLUSMALLINT>(column + 1), name.data(),
                                       static_cast<SQLSMALLINT>(name.size()), &length, &type, &size, &scale,
                                       &nullable)))
        m_statement.raiseLast();
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return {Form::Whole, sizeof(SQLBIGINT), {}, {}};
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        return {Form::Real, sizeof(double), {}, {}};
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return {Form::Date, sizeof(SQL_TIMESTAMP_STRUCT), {}, {}};
    default:
        return {Form::Text, (bufferedLetters + 1) * sizeof(char16_t), {}, {}};
    }
}

/// At the first run: most statements that only write have no columns, and some never run.
void RowBlock::bind() {
    m_bound = true;
    const std::size_t rows = m_inBlocks ? rowsAtOnce : 1;
    for (Column& column : m_columns) {
        column.values.resize(column.width * rows);
        column.lengths.resize(rows);
    }
    if (!m_inBlocks) {
        m_texts.resize(m_columns.size());
        return;
    }
    const SQLHSTMT statement = m_statement.get();
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, asPointer(rowsAtOnce), 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &m_fetched, 0);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        Column& column = m_columns[i];
        SQLBindCol(statement, static_cast<SQLUSMALLINT>(i + 1), bufferType(column.form), column.values.data(),
                   static_cast<SQLLEN>(column.width), column.lengths.data());
    }
}

void RowBlock::restart() {
    if (!m_described)
        describe();
    if (!m_bound && !m_columns.empty())
        bind();
    m_fetched = m_at = 0;
    m_atEnd = m_columns.empty();
}

bool RowBlock::next() {
    if (m_at < m_fetched) {
        ++m_at;
        return true;
    }
    if (m_atEnd)
        return false;
    const SQLRETURN code = SQLFetch(m_statement.get());
    if (code == SQL_NO_DATA) {
        m_atEnd = true;
        return false;
    }
    if (!SQL_SUCCEEDED(code))
        m_statement.raiseLast();
    m_at = 1;
    if (!m_inBlocks) {
        m_fetched = 1;
        readAlone();
    }
    return m_fetched > 0;
}

/// All columns, one after the other from the left: drivers need not give them out otherwise.
void RowBlock::readAlone() {
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        Column& column = m_columns[i];
        if (column.form == Form::Text) {
            const bool isNull = !readText(static_cast<int>(i), m_texts[i]);
            column.lengths.front() = isNull ? SQL_NULL_DATA : 0;
        } else if (!SQL_SUCCEEDED(SQLGetData(m_statement.get(), static_cast<SQLUSMALLINT>(i + 1),
                                             bufferType(column.form), column.values.data(),
                                             static_cast<SQLLEN>(column.width), column.lengths.data()))) {
            m_statement.raiseLast();
        }
    }
}

Cell RowBlock::cell(int index, std::optional<ColumnType> type, TextArena& texts) {
    const Column& column = m_columns[static_cast<std::size_t>(index)];
    const std::size_t row = m_at - 1;
    if (column.lengths[row] == SQL_NULL_DATA)
        return nullCell();
    switch (column.form) {
    case Form::Whole:
        return wholeCell(valueAt<SQLBIGINT>(column.values, row), type);
    case Form::Real:
        return realCell(valueAt<double>(column.values, row));
    case Form::Date:
        return momentCell(valueAt<SQL_TIMESTAMP_STRUCT>(column.values, row));
    case Form::Text:
        break;
    }
    return textAt(index, texts);
}

Cell RowBlock::textAt(int index, TextArena& texts) {
    if (!m_inBlocks)
        return utf16Cell(m_texts[static_cast<std::size_t>(index)], texts);
    const Column& column = m_columns[static_cast<std::size_t>(index)];
    const std::size_t row = m_at - 1;
    const std::ptrdiff_t bytes = column.lengths[row];
    if (bytes < 0 || bytes > static_cast<std::ptrdiff_t>(bufferedLetters * sizeof(char16_t)))
        return utf16Cell(longText(index), texts);
    const auto* text = reinterpret_cast<const char16_t*>(column.values.data() + row * column.width);
    return utf16Cell({text, static_cast<std::size_t>(bytes) / sizeof(char16_t)}, texts);
}

/// A text that did not fit into its buffer, asked for again as a whole.
std::u16string RowBlock::longText(int index) {
    if (!SQL_SUCCEEDED(SQLSetPos(m_statement.get(), m_at, SQL_POSITION, SQL_LOCK_NO_CHANGE)))
        m_statement.raiseLast();
    std::u16string text;
    (void)readText(index, text);
    return text;
}

bool RowBlock::readText(int index, std::u16string& text) {
    text.clear();
    if (m_part.empty())
        m_part.resize(4'096);
    const auto size = static_cast<SQLLEN>(m_part.size() * sizeof(char16_t));
    for (;;) {
        SQLLEN left = 0;
        const SQLRETURN code = SQLGetData(m_statement.get(), static_cast<SQLUSMALLINT>(index + 1),
                                          SQL_C_WCHAR, m_part.data(), size, &left);
        if (code == SQL_NO_DATA)
            return true;
        if (!SQL_SUCCEEDED(code))
            m_statement.raiseLast();
        if (left == SQL_NULL_DATA)
            return false;
        const bool whole = left >= 0 && left < size;
        text.append(m_part.data(),
                    whole ? static_cast<std::size_t>(left) / sizeof(char16_t) : m_part.size() - 1);
        if (whole)
            return true;
    }
}

} // namespace tarnwell::data
