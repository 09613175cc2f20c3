#include "bench/LargeSample.h"

#include "data/recordset/Recordset.h"
#include "runtime/DataEnvironment.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGlobalVariables.h"

#include <QFile>
#include <QTemporaryDir>

namespace tarnwell::bench {

bool openLargeSample(benchmark::State& state) {
    static const QTemporaryDir folder;
    static const bool opened = [] {
        const QString sample = qEnvironmentVariable("TARNWELL_SAMPLE");
        const QString copy = folder.filePath("Tarnwell.mdb");
        if (sample.startsWith(QLatin1String("Provider=")))
            gConnectionString = sample;
        else if (QFile::copy(sample, copy))
            gConnectionString = fileConnectionString(copy);
        else
            return false;
        return DataEnvironment::cnnConnection().State() == ObjectState::Open;
    }();
    if (!opened)
        state.SkipWithError("TARNWELL_SAMPLE names no database");
    return opened;
}

QString middleOf(const QString& sql) {
    Recordset rows;
    rows.Open(sql, DataEnvironment::cnnConnection());
    rows.Move(rows.RecordCount() / 2);
    return FieldText(rows.field(0));
}

} // namespace tarnwell::bench
