#include "data/sql/RowStatements.h"

#include "data/schema/Quoted.h"

#include <QByteArrayList>

namespace tarnwell::data {

namespace {

QByteArray columnName(const schema::Table& table, int column) {
    return quoted(table.columns[static_cast<std::size_t>(column)].name);
}

QByteArray whereKey(const schema::Table& table) {
    return " WHERE " + quoted(table.keyColumn) + "=?";
}

} // namespace

QByteArray readRowStatement(const schema::Table& table, std::span<const int> columns) {
    QByteArray sql = "SELECT " + quoted(table.keyColumn);
    for (const int column : columns)
        sql += ',' + columnName(table, column);
    return sql + " FROM " + quoted(table.name) + whereKey(table);
}

QByteArray insertStatement(const schema::Table& table, std::span<const int> columns, std::size_t rows) {
    const QByteArray into = "INSERT INTO " + quoted(table.name);
    if (columns.empty())
        return into + " DEFAULT VALUES";
    QByteArray names;
    QByteArray values;
    for (const int column : columns) {
        names += ',' + columnName(table, column);
        values += ",?";
    }
    const QByteArray row = ",(" + values.sliced(1) + ')';
    return into + " (" + names.sliced(1) + ") VALUES " + row.repeated(static_cast<int>(rows)).sliced(1);
}

QByteArray updateStatement(const schema::Table& table, std::span<const int> columns) {
    QByteArrayList assignments;
    for (const int column : columns)
        assignments << columnName(table, column) + "=?";
    return "UPDATE " + quoted(table.name) + " SET " + assignments.join(',') + whereKey(table);
}

QByteArray deleteStatement(const schema::Table& table) {
    return "DELETE FROM " + quoted(table.name) + whereKey(table);
}

QByteArray narrowedStatement(const QByteArray& select, int width, int keyCell) {
    QByteArrayList names;
    for (int i = 0; i < width; ++i)
        names << 'c' + QByteArray::number(i);
    return "WITH r(" + names.join(',') + ") AS (" + select + ") SELECT * FROM r WHERE c" +
           QByteArray::number(keyCell) + "=?";
}

} // namespace tarnwell::data
