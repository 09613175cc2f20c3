#include "data/check/CatalogCheck.h"

#include "data/RunTimeError.h"
#include "data/check/CheckRules.h"
#include "data/engine/ServerCatalog.h"
#include "data/recordset/EngineFactory.h"

#include <array>

namespace tarnwell {

namespace {

using data::Engine;
using schema::ColumnType;

constexpr std::chrono::milliseconds busyTimeout{5000};

FindingGroup findingsOf(Engine& engine, const data::CheckRule& rule, int shown) {
    FindingGroup group{.table = rule.table,
                       .rule = QStringLiteral("%1.%2 %3").arg(rule.table, rule.column, rule.fault),
                       .first = {}};
    const schema::Table& table = *schema::findTable(rule.table);
    const auto column = static_cast<std::size_t>(table.columnIndex(rule.column));
    const std::array types{std::optional(ColumnType::Key), std::optional(table.columns[column].type)};
    const data::Translation statement = engine.translate(rule.statement());
    const auto rows = engine.open(statement.shape->sql, statement.parameters);
    for (; rows->next(); ++group.count) {
        if (group.count >= shown)
            continue;
        std::array<data::Cell, 2> cells{};
        data::TextArena texts;
        rows->read(cells, types, texts);
        const Value value = valueOf(cells[1]);
        group.first.push_back({rule.table, cells[0].number, rule.column,
                               shownValue(value.isNull() ? QString() : value.toText())});
    }
    return group;
}

} // namespace

CheckResult checkCatalog(const QString& connectionString, int shownPerRule) {
    CheckResult result;
    result.engineProblems = data::openServerCatalog(connectionString)->problems();
    if (!result.isClean())
        return result;
    const auto engine = data::openEngine(connectionString, busyTimeout);
    result.schemaVersion = engine->schemaVersion();
    engine->beginReading();
    for (const auto& rules : {data::rangeRules(), data::rowRules()})
        for (const data::CheckRule& rule : rules)
            if (FindingGroup group = findingsOf(*engine, rule, shownPerRule); group.count > 0)
                result.groups.push_back(std::move(group));
    engine->rollback();
    return result;
}

} // namespace tarnwell
