#include "ToolRun.h"

#include "DatabaseTool.h"
#include "data/schema/Schema.h"
#include "data/sqlite/SqliteDatabase.h"

namespace tarnwell::test {

ToolResult runToolWith(const QStringList& arguments) {
    ToolResult result;
    QTextStream out(&result.out);
    QTextStream err(&result.err);
    result.code = tool::runTool(QStringList(QStringLiteral("tarnwell-db")) + arguments, {out, err});
    out.flush();
    err.flush();
    return result;
}

void breakDatabase(const QString& path, const QString& sql) {
    const data::SqliteDatabase handle(path, data::SqliteDatabase::Access::ReadWrite);
    handle.run("PRAGMA foreign_keys=0");
    handle.run("PRAGMA ignore_check_constraints=1");
    for (const QString& statement : sql.split(';'))
        handle.run(statement.toUtf8());
}

QString dump(const QString& path) {
    const data::SqliteDatabase handle(path, data::SqliteDatabase::Access::ReadOnly);
    QString text;
    for (const schema::Table& table : schema::tables()) {
        text += table.name + '\n';
        QStringList columns; // quoted by the engine, which tells Null from an empty text
        for (const schema::Column& column : table.columns)
            columns << QString("quote([%1])").arg(column.name);
        data::SqliteStatement rows = handle.prepare(QString("SELECT %1 FROM [%2] ORDER BY [%3]")
                                                        .arg(columns.join(','), table.name, table.keyColumn)
                                                        .toUtf8());
        while (rows.step()) {
            for (std::size_t column = 0; column < table.columns.size(); ++column)
                text += rows.textAt(static_cast<int>(column)) + '|';
            text += '\n';
        }
    }
    return text;
}

} // namespace tarnwell::test
