#include "runtime/UpToDateDatabase.h"

#include "data/schema/SchemaVersion.h"
#include "data/upgrade/DatabaseUpgrade.h"
#include "runtime/BackupSettings.h"
#include "runtime/DataEnvironment.h"
#include "runtime/MousePointer.h"
#include "runtime/MsgBox.h"
#include "runtime/RunTime.h"
#include "runtime/modGlobalVariables.h"

#include <QDir>
#include <QFileInfo>

namespace tarnwell {

namespace {

/// A file that does not exist: "before-version-2-2026-11-25.mdb", with a number behind it where need be.
/// Makes the folder where it can, unless it was chosen.
QString backupBeforeUpgrade() {
    const BackupPlace place = backupPlace();
    const QDir folder(place.folder);
    if (!place.isChosen)
        (void)folder.mkpath(QStringLiteral("."));
    const QString name =
        QStringLiteral("before-version-%1-%2")
            .arg(QString::number(schema::currentVersion), Today().date.toString(Qt::ISODate));
    QString path = folder.filePath(name + QStringLiteral(".mdb"));
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = folder.filePath(QStringLiteral("%1-%2.mdb").arg(name, QString::number(number)));
    return path;
}

} // namespace

void openDatabaseUpToDate() {
    if (isUpToDate(DataEnvironment::cnnConnection()))
        return;
    DataEnvironment::close();
    const QString backup = backupBeforeUpgrade();
    int from = schema::currentVersion;
    {
        const HourGlass hourGlass;
        from = upgradeDatabase(gConnectionString, backup);
    }
    static_cast<void>(DataEnvironment::cnnConnection());
    if (from == schema::currentVersion) // another program was quicker
        return;
    MsgBox({.text = QStringLiteral(
                        "This database was made by an earlier version of Tarnwell and has been brought "
                        "up to date.\n\nAs it was before, it is kept in\n%1")
                        .arg(QDir::toNativeSeparators(backup)),
            .title = QStringLiteral("Tarnwell"),
            .icon = MessageIcon::Information});
}

} // namespace tarnwell
