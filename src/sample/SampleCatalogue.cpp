#include "sample/SampleCatalogue.h"

#include "sample/SampleWords.h"

namespace tarnwell::sample {

namespace {

constexpr int categoryList = 2;

qint64 writeCategory(SampleTables& tables, const char* name, bool deleted = false) {
    return tables.code.add({categoryList, Value(), name, deleted});
}

MasterTask writeTask(SampleTables& tables, MasterTask task, bool deleted = false) {
    task.key = tables.masterTask.add(
        {task.codeKey, task.name, money(task.cents), task.custom, task.excluded, deleted});
    return task;
}

void writeTrade(SampleTables& tables, Catalogue& catalogue, int trade) {
    const words::Trade& offer = words::trades()[static_cast<std::size_t>(trade)];
    const bool last = trade + 1 == static_cast<int>(words::trades().size());
    catalogue.tradeKeys.push_back(writeCategory(tables, offer.name));
    int position = 0;
    for (const words::TaskOffer& task : offer.tasks) {
        // A trade's closing task is done whenever there is time: it holds nobody back.
        const bool excluded = position > 0 && position + 1 == static_cast<int>(offer.tasks.size());
        const MasterTask written = writeTask(tables, {.codeKey = catalogue.tradeKeys.back(),
                                                      .trade = trade,
                                                      .name = QString::fromLatin1(task.name),
                                                      .cents = task.cents,
                                                      .custom = position % 5 == 4 ? "Y" : "N",
                                                      .excluded = excluded});
        if (last && position == words::finalTask)
            catalogue.finalTask = written;
        else
            catalogue.tasks.push_back(written);
        ++position;
    }
}

void writeServiceTasks(SampleTables& tables, Catalogue& catalogue) {
    catalogue.serviceKey = writeCategory(tables, landmark::bigCategory.where);
    int count = 0;
    for (const char* action : words::serviceActions())
        for (const char* item : words::serviceItems())
            for (const char* room : words::serviceRooms())
                catalogue.serviceTasks.push_back(
                    writeTask(tables, {.codeKey = catalogue.serviceKey,
                                       .name = QStringLiteral("%1 %2, %3").arg(action, item, room),
                                       .cents = 2500 + 250 * (count++ % 31)}));
}

/// What an office no longer uses stays in its tables, marked.
void writeRetired(SampleTables& tables, const Catalogue& catalogue) {
    const qint64 retired = writeCategory(tables, "Wallpaper", true);
    writeTask(tables, {.codeKey = retired, .name = QStringLiteral("Hang wallpaper, bath"), .cents = 16000});
    writeTask(
        tables,
        {.codeKey = catalogue.tradeKeys.front(), .name = QStringLiteral("Frame bay window"), .cents = 21000},
        true);
    tables.dependency.add({retired, catalogue.tradeKeys.front()});
}

} // namespace

Catalogue writeCatalogue(SampleTables& tables, const Scale& scale) {
    Catalogue catalogue;
    for (int trade = 0; trade < static_cast<int>(words::trades().size()); ++trade)
        writeTrade(tables, catalogue, trade);
    for (const words::Dependency& dependency : words::dependencies())
        tables.dependency.add({catalogue.tradeKeys[static_cast<std::size_t>(dependency.trade)],
                               catalogue.tradeKeys[static_cast<std::size_t>(dependency.after)]});
    writeRetired(tables, catalogue);
    if (scale.exactTotals)
        writeServiceTasks(tables, catalogue);
    return catalogue;
}

} // namespace tarnwell::sample
