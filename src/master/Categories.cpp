#include "master/Categories.h"

#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

std::vector<ListItem> readTaskCategories(Connection& connection, qint64 except) {
    const QString others = except == 0 ? QString() : " AND CodeKey<>" + QString::number(except);
    Recordset codes;
    codes.Open("SELECT * FROM Code WHERE Deleted=0 AND Code1=2" + others + " ORDER BY Description",
               connection);
    std::vector<ListItem> items;
    for (; !codes.atEnd(); codes.MoveNext())
        items.emplace_back(FieldText(codes["Description"]), codes["CodeKey"].toLong());
    return items;
}

} // namespace tarnwell
