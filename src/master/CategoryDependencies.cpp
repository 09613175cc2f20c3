#include "master/CategoryDependencies.h"

#include "data/recordset/Recordset.h"

namespace tarnwell {

QString dependenciesOf(qint64 categoryKey) {
    return "SELECT CategoryDependency.CategoryDependencyKey, CategoryDependency.CategoryKey, "
           "CategoryDependency.DependentKey, Code.Description FROM Code INNER JOIN CategoryDependency ON "
           "Code.CodeKey = CategoryDependency.DependentKey WHERE Deleted=0 AND Code.Code1 = 2 AND "
           "CategoryKey=" +
           QString::number(categoryKey) + " ORDER BY Code.Description";
}

void addDependency(Connection& connection, qint64 categoryKey, qint64 dependentKey) {
    Recordset rows;
    rows.Open("CategoryDependency", connection, CursorType::Dynamic, LockType::Optimistic);
    rows.AddNew();
    rows.set("CategoryKey", categoryKey);
    rows.set("DependentKey", dependentKey);
    rows.Update();
}

bool confirmDependencyRemoval(const Ask& ask) {
    return ask({.text = "Delete dependency?",
                .title = "Delete Verification",
                .buttons = MessageButtons::YesNo}) != Answer::No;
}

void removeDependency(Connection& connection, const Value& categoryDependencyKey) {
    connection.Execute("DELETE FROM CategoryDependency WHERE CategoryDependencyKey=" +
                       categoryDependencyKey.toText());
}

} // namespace tarnwell
