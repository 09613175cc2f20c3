#include "master/OptionGroups.h"

#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

constexpr int groupList = 5; // Code1 of a group.

} // namespace

std::vector<ListItem> readOptionGroups(Connection& connection, qint64 builderKey) {
    Recordset groups;
    groups.Open("SELECT * FROM Code WHERE Code1=5 AND Code2=" + QString::number(builderKey) +
                    " ORDER BY Description",
                connection);
    std::vector<ListItem> lines;
    for (; !groups.atEnd(); groups.MoveNext())
        lines.emplace_back(FieldText(groups["Description"]), groups["CodeKey"].toLong());
    return lines;
}

void addOptionGroup(Connection& connection, qint64 builderKey, const QString& name) {
    Recordset codes;
    codes.Open("Code", connection, CursorType::Dynamic, LockType::Optimistic);
    codes.AddNew();
    codes.set("Code1", groupList);
    codes.set("Code2", builderKey);
    codes.set("Description", name);
    codes.Update();
}

void renameOptionGroup(Connection& connection, qint64 groupKey, const QString& name) {
    Recordset group;
    group.Open("SELECT Description FROM Code WHERE CodeKey=" + QString::number(groupKey), connection,
               CursorType::Static, LockType::Optimistic);
    group.set("Description", name);
    group.Update();
}

void deleteOptionGroup(Connection& connection, qint64 groupKey) {
    connection.Execute("DELETE FROM ContractorOptionGroup WHERE CodeKey=" + QString::number(groupKey));
    connection.Execute("DELETE FROM Code WHERE CodeKey=" + QString::number(groupKey));
}

void deleteOptionGroupTask(Connection& connection, qint64 optionGroupKey) {
    connection.Execute("DELETE FROM ContractorOptionGroup WHERE OptionGroupKey=" +
                       QString::number(optionGroupKey));
}

} // namespace tarnwell
