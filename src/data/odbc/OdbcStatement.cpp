#include "data/odbc/OdbcStatement.h"

#include "data/RunTimeError.h"
#include "data/odbc/RowBlock.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <sql.h>
#include <sqlext.h>
#include <utility>

namespace tarnwell::data {

namespace {

/// The shortest digits that give the same double back.
std::u16string numberDigits(double number) {
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return {digits.data(), error == std::errc() ? end : digits.data()};
}

std::u16string textOf(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::YesNo:
    case Value::Kind::Long:
        return QString::number(value.toLong()).toStdU16String();
    case Value::Kind::Double:
        return numberDigits(value.toDouble());
    case Value::Kind::Date: {
        const auto text = storedDate(value.toDate());
        return {text.begin(), text.end()};
    }
    case Value::Kind::Empty:
    case Value::Kind::Null:
        return {};
    case Value::Kind::Text:
        break;
    }
    return value.toText().toStdU16String();
}

} // namespace

OdbcStatement::OdbcStatement(std::shared_ptr<OdbcConnection> connection, const QByteArray& sql)
    : m_connection(std::move(connection)), m_sql(sql) {
    SQLAllocHandle(SQL_HANDLE_STMT, m_connection->get(), &m_handle);
    try {
        std::u16string text = QString::fromUtf8(sql).toStdU16String();
        check(SQLPrepareW(m_handle, reinterpret_cast<SQLWCHAR*>(text.data()),
                          static_cast<SQLINTEGER>(text.size())));
        m_rows = std::make_unique<RowBlock>(*this);
        // The driver sends nothing before it must: only now does the server look at the statement.
        if (m_connection->fetchesInBlocks())
            m_rows->describe();
    } catch (const RunTimeError&) {
        SQLFreeHandle(SQL_HANDLE_STMT, m_handle);
        throw;
    }
}

OdbcStatement::~OdbcStatement() {
    SQLFreeHandle(SQL_HANDLE_STMT, m_handle);
}

void OdbcStatement::bind(std::span<const Value> values) {
    m_parameters.resize(std::max(m_parameters.size(), values.size()));
    for (std::size_t i = 0; i < values.size(); ++i) {
        Parameter& parameter = m_parameters[i];
        const bool isNull = values[i].isNull() || values[i].isEmpty();
        parameter.text = textOf(values[i]);
        parameter.bytes = isNull ? SQL_NULL_DATA : std::ssize(parameter.text) * 2;
        bindParameter(i);
    }
}

void OdbcStatement::bindAs(const OdbcStatement& other) {
    m_parameters = other.m_parameters;
    for (std::size_t i = 0; i < m_parameters.size(); ++i)
        bindParameter(i);
}

/// The driver reads the text when the statement runs: it must stay where it is.
void OdbcStatement::bindParameter(std::size_t index) {
    Parameter& parameter = m_parameters[index];
    const auto length = static_cast<SQLULEN>(std::max<std::size_t>(parameter.text.size(), 1));
    check(SQLBindParameter(m_handle, static_cast<SQLUSMALLINT>(index + 1), SQL_PARAM_INPUT, SQL_C_WCHAR,
                           SQL_WVARCHAR, length, 0, parameter.text.data(), std::ssize(parameter.text) * 2,
                           &parameter.bytes));
}

void OdbcStatement::run(const OdbcRunner& runner) {
    const int code = runner([this] { return SQLExecute(m_handle); }, [this] { cancel(); });
    if (code != SQL_NO_DATA) // an UPDATE that found no row
        check(code);
    m_rows->restart();
}

int OdbcStatement::touchedRows() const {
    SQLLEN count = 0;
    SQLRowCount(m_handle, &count);
    return static_cast<int>(std::clamp<SQLLEN>(count, 0, std::numeric_limits<int>::max()));
}

RowBlock& OdbcStatement::rows() {
    return *m_rows;
}

void OdbcStatement::reset() noexcept {
    SQLFreeStmt(m_handle, SQL_CLOSE);
}

void OdbcStatement::cancel() noexcept {
    m_wasCancelled = true;
    SQLCancel(m_handle);
}

void OdbcStatement::raiseLast() const {
    m_connection->raiseLast(m_handle, m_sql);
}

void OdbcStatement::check(int code) const {
    if (!SQL_SUCCEEDED(code))
        raiseLast();
}

} // namespace tarnwell::data
