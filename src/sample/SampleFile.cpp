#include "sample/SampleFile.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/file/DatabaseFile.h"
#include "data/file/FileReplacement.h"
#include "sample/SampleDatabase.h"

#include <QFileInfo>

namespace tarnwell::sample {

namespace {

void fill(const QString& path) {
    Connection connection;
    connection.setConnectionString(fileConnectionString(path));
    connection.Open();
    writeSample(connection, scales().front(), defaultSeed);
    connection.Close();
}

} // namespace

void makeSampleFile(const QString& path) {
    const QString target = pathOnDisk(path);
    data::FileReplacement file(target);
    if (QFileInfo::exists(target))
        raise(Failure::FileAccess, target);
    createDatabase(file.temporaryPath());
    fill(file.temporaryPath());
    updateStatistics(file.temporaryPath());
    file.moveIntoPlace(data::FileReplacement::Existing::Keep);
}

} // namespace tarnwell::sample
