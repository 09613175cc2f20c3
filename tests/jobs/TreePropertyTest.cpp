#include "builders/TaskPicking.h"
#include "jobs/JobOptionGroup.h"
#include "jobs/LotData.h"
#include "jobs/PlanTasks.h"
#include "master/OptionGroups.h"
#include "support/RaisedNumber.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

using Keys = std::set<qint64>;

struct Task {
    qint64 lot = 0;
    TreePlace place;
    qint64 code = 0;
    QString name;

    [[nodiscard]] bool isOption() const { return place.child != 0; }
};
using Tasks = std::map<qint64, Task>;

bool isParent(const std::pair<qint64, Task>& task) {
    return task.second.place.parentKey == task.first && !task.second.isOption();
}
bool isOptionOf(qint64 parent, const Task& task) {
    return task.isOption() && task.place.parentKey == parent;
}
bool hasOptions(const Tasks& tasks, qint64 parent) {
    return std::any_of(tasks.begin(), tasks.end(),
                       [&](const auto& task) { return isOptionOf(parent, task.second); });
}

/// Where a tree may be out of order, and why. All of it begins with a copy of a lot: it links an option only
/// while its parent was the task seen last, and it resets a task of the source lot.
struct Disorder {
    Keys childless; ///< A copied parent whose options were parted from it. It still points at itself.
    Keys unmarked;  ///< A source parent that the next one behind it made plain; it has its options still.
    Keys loose;     ///< Options of an unmarked task that was deleted like any plain one, and theirs.

    friend bool operator==(const Disorder&, const Disorder&) = default;
    void forgetGone(const Tasks& tasks) {
        for (Keys* keys : {&childless, &unmarked, &loose})
            std::erase_if(*keys, [&](qint64 key) { return !tasks.contains(key); });
    }
};

/// What is out of order in the tasks as they stand. What must hold without exception is checked here.
Disorder disorderOf(const Tasks& tasks) {
    Disorder found;
    for (const auto& [key, task] : tasks) {
        const auto& [parentKey, child] = task.place;
        if (!task.isOption()) {
            EXPECT_TRUE(parentKey == 0 || parentKey == key) << "a base task points at another one";
            if (const bool options = hasOptions(tasks, key); options != (parentKey == key))
                (options ? found.unmarked : found.childless).insert(key);
            continue;
        }
        EXPECT_EQ(child, 1);
        const auto parent = tasks.find(parentKey);
        if (parent == tasks.end() || parent->second.isOption()) {
            found.loose.insert(key);
            continue;
        }
        EXPECT_EQ(task.lot, parent->second.lot);
        EXPECT_EQ(task.code, parent->second.code);
        EXPECT_TRUE(task.name.startsWith(parent->second.name + u' ')) << qPrintable(task.name);
    }
    return found;
}

/// Fills, copies and empties the lots of a job at random, and knows what disorder each step may leave.
class RandomWork {
public:
    explicit RandomWork(unsigned seed) : m_random(seed) {
        // Names that sort between a parent and its options.
        m_data.addMaster("Walls Cap", m_data.framing, 10.0);
        const qint64 between = m_data.addMaster("Walls Bay", m_data.framing, 10.0);
        m_data.addPlanTask("Hang", m_data.plan, m_data.hang, m_data.drywall, 20.0);
        for (const char* name : {"Arch", "Deck"})
            m_data.db.add(
                "ContractorTaskOption",
                {{"ContractorPlanTaskKey", m_data.planWalls}, {"Name", name}, {"MasterPrice", 1.0}});
        for (const char* name : {"Deck", "Trim"}) {
            m_groups.emplace_back(name, m_data.addGroup(name));
            for (const qint64 master : {m_data.walls, between, m_data.hang})
                m_data.addGroupTask(m_groups.back().key, master, 2.0);
        }
    }

    void step() {
        using Step = void (RandomWork::*)(qint64 lot);
        constexpr Step steps[] = {&RandomWork::typeTask,   &RandomWork::pickTasks,  &RandomWork::pickOptions,
                                  &RandomWork::takePlan,   &RandomWork::applyGroup, &RandomWork::deleteTask,
                                  &RandomWork::deleteTask, &RandomWork::deleteTask, &RandomWork::copy};
        (this->*steps[below(std::size(steps))])(anyLot());
        expected.forgetGone(read());
    }
    Tasks read(const QString& where = "1=1", const QString& order = "JobLotTaskKey") {
        Tasks tasks;
        for (auto& [key, task] : readInOrder(where, order))
            tasks.emplace(key, std::move(task));
        return tasks;
    }
    qint64 nulls() { return m_data.count("JobLotTask WHERE ParentKey IS NULL OR Child IS NULL"); }

    Disorder expected;

private:
    using OrderedTasks = std::vector<std::pair<qint64, Task>>;

    std::size_t below(std::size_t count) { return m_random() % count; }
    Connection& connection() { return m_data.db.connection(); }
    static QString ofLot(qint64 lot) { return "JobLotKey=" + QString::number(lot); }

    OrderedTasks readInOrder(const QString& where, const QString& order) {
        Recordset rows;
        rows.Open("SELECT * FROM JobLotTask WHERE " + where + " ORDER BY " + order, connection());
        OrderedTasks tasks;
        for (; !rows.atEnd(); rows.MoveNext())
            tasks.emplace_back(rows["JobLotTaskKey"].toLong(),
                               Task{rows["JobLotKey"].toLong(),
                                    {rows["ParentKey"].toLong(), rows["Child"].toLong()},
                                    rows["CodeKey"].toLong(),
                                    rows["Name"].toText()});
        return tasks;
    }
    qint64 anyLot() {
        Recordset lots;
        lots.Open("SELECT JobLotKey FROM JobLot", connection());
        lots.Move(static_cast<int>(below(static_cast<std::size_t>(lots.RecordCount()))));
        return lots.field(0).toLong();
    }
    std::vector<ListItem> someOf(const std::vector<ListItem>& lines) {
        std::vector<ListItem> some;
        std::copy_if(lines.begin(), lines.end(), std::back_inserter(some),
                     [&](auto&) { return below(2) == 0; });
        return some;
    }

    void typeTask(qint64 lot) {
        constexpr const char* names[] = {"Walls", "Walls Eave", "Den"};
        m_data.addTask(names[below(std::size(names))], lot);
    }
    void pickTasks(qint64 lot) {
        addPicked(connection(), PickingMode::Lot, {lot}, false,
                  someOf(readPickingList(connection(), PickingMode::Lot, {lot}).lines));
    }
    void takePlan(qint64 lot) {
        addPlanTasks(connection(), {m_data.job, m_data.builder, lot, m_data.plan}, {"Aspen", m_data.plan},
                     someOf(readPlanTasks(connection(), m_data.plan, lot)));
    }
    /// For a base task, and at least one option: the dialog that picks them has no other use.
    void pickOptions(qint64 lot) {
        Recordset bases;
        bases.Open("SELECT * FROM JobLotTask WHERE Child=0 AND " + ofLot(lot), connection());
        if (bases.atEnd())
            return;
        bases.Move(static_cast<int>(below(static_cast<std::size_t>(bases.RecordCount()))));
        const Value key = bases["JobLotTaskKey"];
        const PickingTarget target{lot,
                                   {},
                                   {key, bases["ContractorPlanTaskKey"], bases["ParentKey"],
                                    bases["MasterTaskKey"], bases["CodeKey"], bases["Name"],
                                    bases["ExcludeDependency"]}};
        const PickingList list = readPickingList(connection(), PickingMode::TaskOptions, target);
        const std::vector<ListItem> picked = someOf(list.lines);
        constexpr int longestWhole = 30; // Behind it the option's name would be cut.
        if (picked.empty() || bases["Name"].toText().size() > longestWhole)
            return;
        const Tasks before = read();
        m_data.place(key.toLong(), {key.toLong(), 0});
        addPicked(connection(), PickingMode::TaskOptions, target, list.nonLinked, picked);
        expectOptionsSince(before);
    }
    void applyGroup(qint64 lot) {
        const auto& [name, group] = m_groups[below(m_groups.size())];
        const Tasks before = read();
        Recordset rows;
        rows.Open(optionGroupTasks, connection(), CursorType::Static, LockType::Optimistic);
        rows.setFilter("CodeKey=" + QString::number(group));
        applyOptionGroup(connection(), rows, name, lot);
        expectOptionsSince(before);
    }
    /// A new option puts its parent in order, whatever it was. The lot's first task of its kind may be a
    /// loose option, which takes the new one without becoming a parent.
    void expectOptionsSince(const Tasks& before) {
        for (const auto& [key, task] : read()) {
            if (before.contains(key) || !task.isOption())
                continue;
            if (expected.loose.contains(task.place.parentKey))
                expected.loose.insert(key);
            expected.childless.erase(task.place.parentKey);
            expected.unmarked.erase(task.place.parentKey);
        }
    }
    void deleteTask(qint64 lot) {
        const OrderedTasks tasks = readInOrder(ofLot(lot), "JobLotTaskKey");
        if (tasks.empty())
            return;
        const auto& [key, task] = tasks[below(tasks.size())];
        const TreePlace place = task.place;
        const qint64 parent = place.parentKey;
        Tasks left;
        const int raised = raisedNumber([&] {
            deleteFromTree(connection(), place, [&] {
                m_data.db.run("DELETE" + LotData::fromTask(key));
                left = read();
            });
        });
        const bool last = task.isOption() && !hasOptions(left, parent);
        EXPECT_EQ(raised, last && !left.contains(parent) ? numberOf(Failure::NoCurrentRecord) : 0);
        if (last)
            expected.unmarked.erase(parent);
        if (!expected.unmarked.contains(key))
            return;
        for (const auto& [other, option] : left)
            if (isOptionOf(key, option))
                expected.loose.insert(other);
    }
    void copy(qint64 lot) {
        constexpr int enough = 4;
        if (m_data.count("JobLot") == enough)
            return deleteLot(lot);
        const OrderedTasks source = readInOrder(ofLot(lot), "Name, ParentKey, Child");
        const qint64 copied = copyLot(connection(), {lot, m_data.job, "A", "Aspen", "", m_data.plan});
        const OrderedTasks copies = readInOrder(ofLot(copied), "JobLotTaskKey");
        ASSERT_EQ(source.size(), copies.size());
        const Tasks all = read();
        for (std::size_t i = 0; i < source.size(); ++i) {
            if (!isParent(source[i]))
                continue;
            const qint64 key = source[i].first;
            const bool hasNext = i + 1 < source.size();
            if (!hasNext || !isOptionOf(key, source[i + 1].second))
                expected.childless.insert(copies[i].first);
            if (!hasNext || !isParent(source[i + 1]))
                continue;
            expected.childless.erase(key);
            if (hasOptions(all, key))
                expected.unmarked.insert(key);
        }
    }
    void deleteLot(qint64 lot) { m_data.db.run("DELETE FROM JobLot WHERE " + ofLot(lot)); }

    LotData m_data;
    std::mt19937 m_random;
    std::vector<ListItem> m_groups;
};

} // namespace

TEST(TreeProperty, HoldsAfterEveryStepButForWhatACopyParts) {
    constexpr unsigned seeds[] = {1, 2, 3, 5, 8, 34};
    constexpr int stepsOfASeed = 70;
    bool childlessSeen = false, unmarkedSeen = false, looseSeen = false;
    for (const unsigned seed : seeds) {
        RandomWork work(seed);
        for (int step = 0; step < stepsOfASeed && !::testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE(::testing::Message() << "seed " << seed << ", step " << step);
            work.step();
            EXPECT_EQ(disorderOf(work.read()), work.expected);
            EXPECT_EQ(work.nulls(), 0);
            childlessSeen |= !work.expected.childless.empty();
            unmarkedSeen |= !work.expected.unmarked.empty();
            looseSeen |= !work.expected.loose.empty();
        }
    }
    if (::testing::Test::HasFailure())
        return;
    EXPECT_TRUE(childlessSeen);
    EXPECT_TRUE(unmarkedSeen);
    EXPECT_TRUE(looseSeen);
}
