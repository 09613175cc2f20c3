#include "ToolRun.h"

#include "DatabaseTool.h"
#include "data/Schema.h"

#include <gtest/gtest.h>
#include <memory>
#include <sqlite3.h>

namespace tarnwell::test {

namespace {

struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, Closer>;

Database openRaw(const QString& path) {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &database), SQLITE_OK);
    return Database(database);
}

void runRaw(sqlite3* database, const QByteArray& sql, int (*row)(void*, int, char**, char**) = nullptr,
            void* context = nullptr) {
    EXPECT_EQ(sqlite3_exec(database, sql.constData(), row, context, nullptr), SQLITE_OK)
        << sql.constData() << ": " << sqlite3_errmsg(database);
}

int appendRow(void* text, int count, char** values, char**) {
    auto& all = *static_cast<QString*>(text);
    for (int i = 0; i < count; ++i)
        all +=
            (values[i] == nullptr ? QStringLiteral("Null") : QString::fromUtf8(values[i])) + QLatin1Char('|');
    all += QLatin1Char('\n');
    return 0;
}

} // namespace

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
    const Database database = openRaw(path);
    runRaw(database.get(), "PRAGMA foreign_keys=0; PRAGMA ignore_check_constraints=1");
    runRaw(database.get(), sql.toUtf8());
}

QString dump(const QString& path) {
    const Database database = openRaw(path);
    QString text;
    for (const schema::Table& table : schema::tables()) {
        text += table.name + QLatin1Char('\n');
        runRaw(database.get(),
               QStringLiteral("SELECT * FROM [%1] ORDER BY [%2]").arg(table.name, table.keyColumn).toUtf8(),
               appendRow, &text);
    }
    return text;
}

} // namespace tarnwell::test
