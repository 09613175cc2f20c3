#include "data/file/FileUpgrade.h"

#include "data/DiskPath.h"
#include "data/sqlite/OpenDatabase.h"

#include <QFileInfo>

namespace tarnwell {

/// The version is read again behind the lock: somebody else may have been quicker. What ends this early rolls
/// back as the handle closes.
int upgradeFile(const QString& path, const schema::UpgradeCalls& calls) {
    const data::SqliteDatabase handle = data::openOurDatabase(path, schema::longestUpgradeWait);
    if (!QFileInfo(pathOnDisk(path)).isWritable())
        schema::refuseUpgrade(QStringLiteral("SQLite"), path);
    handle.run("BEGIN IMMEDIATE");
    const int from = data::stampOf(handle, path).version;
    if (from == schema::currentVersion)
        return from;
    calls.save();
    const QStringList statements = schema::upgradeStatements(from);
    const int all = static_cast<int>(statements.size()) + 1;
    int done = 0;
    for (const QString& sql : statements) {
        handle.run(sql.toUtf8());
        calls.afterChange(++done, all);
    }
    data::writeStamp(handle);
    calls.afterChange(all, all);
    handle.run("COMMIT");
    return from;
}

} // namespace tarnwell
