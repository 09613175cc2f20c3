#include "sample/SampleLotTasks.h"

#include <algorithm>

namespace tarnwell::sample {

namespace {

const GroupRow* rowFor(const OptionGroup* group, const MasterTask* master) {
    if (group == nullptr)
        return nullptr;
    const auto found = std::ranges::find(group->rows, master, &GroupRow::master);
    return found == group->rows.end() ? nullptr : &*found;
}

} // namespace

qint64 LotTaskWriter::add(const Row& row) {
    const int position = static_cast<int>(m_tasks.size());
    const QDate due =
        m_lot.start.addDays(std::min(position, m_expected) * m_lot.days / std::max(m_expected, 1));
    Value start = Value::null();
    Value stop = Value::null();
    Value planned;
    // Some tasks of a planned lot have no dates yet, and some dates nobody yet.
    if (m_lot.scheduled && position % 4 != 3) {
        start = DateTime{due, QTime(position % 2 == 0 ? 8 : 13, 0)};
        stop = DateTime{due.addDays(m_random.below(3)), QTime(16, 30)};
        if (position % 5 != 4)
            planned = m_staff.workerFor(m_random, row.trade, due);
    }
    const qint64 key = m_tables.lotTask.add(
        {row.parentKey == 0 ? Value() : Value(row.parentKey), row.parentKey == 0 ? Value() : Value(1),
         m_lot.key, row.masterKey, row.codeKey, row.planTaskKey, row.name, money(row.cents), row.custom,
         row.excluded, start, stop, planned});
    if (row.parent)
        m_tables.lotTask.change(0, key);
    m_tasks.push_back({.key = key, .trade = row.trade, .cents = row.cents, .due = due});
    return key;
}

void LotTaskWriter::addPlanTasks(int count, const OptionGroup* group) {
    const auto& offered = m_lot.plan->tasks;
    const int size = static_cast<int>(offered.size());
    const int wanted = std::min(count, size);
    const int shift = wanted < size ? m_random.below(size) : 0;
    // Evenly spaced, so that every trade of the plan has its part.
    std::vector<int> chosen;
    chosen.reserve(static_cast<std::size_t>(wanted));
    for (int i = 0; i < wanted; ++i)
        chosen.push_back((i * size / wanted + shift) % size);
    std::ranges::sort(chosen);
    for (const int index : chosen) {
        const PlanTask& task = offered[static_cast<std::size_t>(index)];
        // A parent points at itself from the start: the options come when all base tasks stand.
        const bool parent = rowFor(group, task.master) != nullptr;
        // The plan's exclude flag does not reach a lot.
        const qint64 key = add({.masterKey = task.master->key,
                                .codeKey = task.master->codeKey,
                                .planTaskKey = task.key,
                                .name = task.master->name,
                                .custom = task.master->custom,
                                .excluded = {},
                                .trade = task.master->trade,
                                .cents = task.cents,
                                .parent = parent});
        if (parent)
            m_parents.push_back({key, task.master});
    }
}

qint64 LotTaskWriter::addMaster(const MasterTask& master, int cents, const char* custom, bool parent) {
    const qint64 key = add({.masterKey = master.key,
                            .codeKey = master.codeKey,
                            .planTaskKey = {},
                            .name = master.name,
                            .custom = custom,
                            .excluded = master.excluded,
                            .trade = master.trade,
                            .cents = cents,
                            .parent = parent});
    if (parent)
        m_parents.push_back({key, &master});
    return key;
}

void LotTaskWriter::addMasterTask(const MasterTask& master) {
    addMaster(master, master.cents, master.custom, false);
}

void LotTaskWriter::addTyped(qint64 codeKey, int trade, const QString& name, int cents) {
    add({.masterKey = 0,
         .codeKey = codeKey,
         .planTaskKey = {},
         .name = name,
         .custom = "Y",
         .excluded = {},
         .trade = trade,
         .cents = cents});
}

void LotTaskWriter::addOptionGroup(const OptionGroup& group) {
    for (const GroupRow& row : group.rows) {
        if (std::ranges::find(m_parents, row.master, &Parent::master) == m_parents.end())
            addMaster(*row.master, 0, "N", true);
        addOption(*std::ranges::find(m_parents, row.master, &Parent::master), group.name, row.cents);
    }
}

void LotTaskWriter::addParent(const MasterTask& master, int options, const QString& optionName,
                              int optionCents) {
    addMaster(master, master.cents, master.custom, true);
    const Parent parent = m_parents.back();
    for (int i = 0; i < options; ++i)
        addOption(parent, QStringLiteral("%1 %2").arg(optionName).arg(i + 1), optionCents);
}

void LotTaskWriter::addOption(const Parent& parent, const QString& optionName, int cents) {
    add({.masterKey = parent.master->key,
         .codeKey = parent.master->codeKey,
         .planTaskKey = {},
         .name = parent.master->name + QLatin1Char(' ') + optionName,
         .custom = "Y",
         .excluded = {},
         .trade = parent.master->trade,
         .cents = cents,
         .parentKey = parent.key});
}

} // namespace tarnwell::sample
