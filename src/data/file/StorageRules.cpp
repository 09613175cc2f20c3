#include "data/file/StorageRules.h"

#include "data/schema/Quoted.h"
#include "data/schema/Schema.h"

#include <array>

namespace tarnwell::data {

namespace {

using schema::ColumnType;

struct TypeRule {
    ColumnType type;
    const char* fault;
    const char* condition; ///< %1 is the column.
};

// Adding no days makes the engine compute the date: merely read, February 30 would pass.
constexpr auto typeRules = std::to_array<TypeRule>({
    {ColumnType::Date, "is not a date",
     "%1 IS NOT NULL AND (typeof(%1)<>'text' OR datetime(%1,'+0 days') IS NOT %1)"},
    {ColumnType::Date, "lies outside 1900 to 2099",
     "datetime(%1,'+0 days') IS %1 AND (%1<'1900-01-01' OR %1>='2100-01-01')"},
    {ColumnType::YesNo, "is neither 0 nor -1", "typeof(%1)<>'integer' OR %1 NOT IN (0,-1)"},
    {ColumnType::Money, "is not a finite number",
     "%1 IS NOT NULL AND (typeof(%1) NOT IN ('integer','real') OR abs(%1)>1.7976931348623157e308)"},
    {ColumnType::Long, "is not a whole number", "typeof(%1) NOT IN ('integer','null')"},
    {ColumnType::Small, "is not a whole number", "typeof(%1) NOT IN ('integer','null')"},
    {ColumnType::Text, "is not text", "typeof(%1) NOT IN ('text','null')"},
});

} // namespace

std::vector<StorageRule> storageRules() {
    std::vector<StorageRule> rules;
    for (const schema::Table& table : schema::tables())
        for (const schema::Column& column : table.columns)
            for (const TypeRule& rule : typeRules)
                if (rule.type == column.type) {
                    const QByteArray name = quoted(column.name);
                    rules.push_back({table.name, column.name, QString::fromLatin1(rule.fault),
                                     "SELECT " + quoted(table.keyColumn) + ", " + name + " FROM " +
                                         quoted(table.name) + " WHERE " +
                                         QByteArray(rule.condition).replace("%1", name) + " ORDER BY 1"});
                }
    return rules;
}

} // namespace tarnwell::data
