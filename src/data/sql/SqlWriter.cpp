#include "data/sql/SqlWriter.h"

#include "data/schema/Quoted.h"

#include <QHash>

namespace tarnwell::data {

namespace {

/// By its small letters; no two names of the catalogue differ by their case alone.
const QHash<QString, QString>& catalogueNames() {
    static const QHash<QString, QString> all = [] {
        QHash<QString, QString> names;
        for (const schema::Table& table : schema::tables()) {
            names.insert(table.name.toLower(), table.name);
            for (const schema::Column& column : table.columns)
                names.insert(column.name.toLower(), column.name);
        }
        return names;
    }();
    return all;
}

} // namespace

QByteArray engineName(QStringView name) {
    const QString small = name.toString().toLower();
    return quoted(catalogueNames().value(small, small).remove(QLatin1Char('"')));
}

} // namespace tarnwell::data
