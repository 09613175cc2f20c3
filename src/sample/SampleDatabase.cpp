#include "sample/SampleDatabase.h"

#include "sample/SampleJobs.h"

namespace tarnwell::sample {

void writeSample(Connection& connection, const Scale& scale, quint64 seed,
                 const std::function<void(int)>& progress) {
    SampleRandom random(seed);
    SampleTables tables(connection);
    const Catalogue catalogue = writeCatalogue(tables, scale);
    const auto builders = writeBuilders(tables, random, scale, catalogue);
    const Staff staff = writeStaff(tables, random, scale, static_cast<int>(catalogue.tradeKeys.size()));
    JobWriter(tables, random, scale, catalogue, builders, staff).writeAll(progress);
    tables.finish();
}

} // namespace tarnwell::sample
