#pragma once

#include "sample/SampleBuilders.h"
#include "sample/SampleStaff.h"

namespace tarnwell::sample {

/// A stored lot, and when it is built.
struct LotFrame {
    qint64 key = 0;
    const Builder* builder = nullptr;
    const Plan* plan = nullptr; ///< Null for a lot that came from no plan.
    QDate start;
    int days = 1;
    bool scheduled = false; ///< Its tasks have planned dates and mostly a planned employee.
};

struct LotTask {
    qint64 key = 0;
    int trade = 0;
    int cents = 0;
    QDate due; ///< When it is done; payments follow.
};

/// Adds the tasks of one lot, with the rows and links that the job screen's dialogs make.
class LotTaskWriter {
public:
    /// `expected` is about how many tasks will come: it spreads them over the lot's days.
    LotTaskWriter(SampleTables& tables, SampleRandom& random, const Staff& staff, const LotFrame& lot,
                  int expected)
        : m_tables(tables), m_random(random), m_staff(staff), m_lot(lot), m_expected(expected) {}

    /// `count` tasks of the lot's plan, spread over its trades; those of the group become parents.
    void addPlanTasks(int count, const OptionGroup* group = nullptr);
    void addMasterTask(const MasterTask& master);
    /// A row typed into the grid: bound to no master task.
    void addTyped(qint64 codeKey, int trade, const QString& name, int cents);
    /// Each row of the group: its task at price 0 where the lot lacks it, and the option below.
    void addOptionGroup(const OptionGroup& group);
    /// A task that carries options, and its options.
    void addParent(const MasterTask& master, int options, const QString& optionName, int optionCents);

    [[nodiscard]] const std::vector<LotTask>& tasks() const { return m_tasks; }

private:
    struct Row {
        Value masterKey, codeKey, planTaskKey, name, custom, excluded;
        int trade = 0;
        int cents = 0;
        qint64 parentKey = 0;
        bool parent = false;
    };
    struct Parent {
        qint64 key;
        const MasterTask* master;
    };

    qint64 add(const Row& row);
    qint64 addMaster(const MasterTask& master, int cents, const char* custom, bool parent);
    void addOption(const Parent& parent, const QString& optionName, int cents);

    SampleTables& m_tables;
    SampleRandom& m_random;
    const Staff& m_staff;
    const LotFrame& m_lot;
    int m_expected;
    std::vector<LotTask> m_tasks;
    std::vector<Parent> m_parents;
};

} // namespace tarnwell::sample
