#include "builders/BuilderRecord.h"

#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

QString recordOf(qint64 builderKey) {
    return "SELECT * FROM Contractor WHERE ContractorKey=" + QString::number(builderKey);
}

} // namespace

std::vector<ListItem> readBuilders(Connection& connection) {
    Recordset builders;
    builders.Open("SELECT ContractorKey, Name FROM Contractor ORDER BY Name", connection);
    std::vector<ListItem> items;
    for (; !builders.atEnd(); builders.MoveNext())
        items.emplace_back(FieldText(builders["Name"]), builders["ContractorKey"].toLong());
    return items;
}

qint64 addBuilder(Connection& connection) {
    Recordset builders;
    builders.Open("Contractor", connection, CursorType::Dynamic, LockType::Optimistic);
    builders.AddNew();
    builders.set("Name", "");
    builders.Update();
    return builders["ContractorKey"].toLong();
}

BuilderTexts readBuilder(Connection& connection, qint64 builderKey) {
    BuilderTexts texts;
    if (builderKey == 0)
        return texts;
    Recordset builder;
    builder.Open(recordOf(builderKey), connection);
    for (std::size_t i = 0; i < texts.size() && !builder.atEnd(); ++i)
        texts.at(i) = FieldText(builder[builderFields.at(i).column]);
    return texts;
}

void saveBuilder(Connection& connection, qint64 builderKey, const BuilderTexts& texts) {
    if (builderKey == 0)
        return;
    Recordset builder;
    builder.Open(recordOf(builderKey), connection, CursorType::Static, LockType::Optimistic);
    for (std::size_t i = 0; i < texts.size(); ++i)
        builder.set(builderFields.at(i).column, texts.at(i));
    builder.Update();
}

void deleteBuilder(Connection& connection, qint64 builderKey) {
    connection.Execute("DELETE FROM Contractor WHERE ContractorKey=" + QString::number(builderKey));
}

QString plansOfBuilder(qint64 builderKey) {
    return "SELECT * FROM ContractorPlan WHERE ContractorKey=" + QString::number(builderKey) +
           " ORDER BY PlanName";
}

QString tasksOfPlan(qint64 planKey, qint64 codeKey) {
    return "SELECT * FROM ContractorPlanTask WHERE ContractorPlanKey=" + QString::number(planKey) +
           " AND CodeKey=" + QString::number(codeKey) + "  ORDER BY NAME";
}

} // namespace tarnwell
