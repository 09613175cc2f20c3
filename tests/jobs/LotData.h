#pragma once

#include "builders/BuilderData.h"
#include "jobs/CurrentLot.h"
#include "jobs/TaskTree.h"

namespace tarnwell::test {

/// The builder's catalogue with a job, and lots whose tasks are added one by one.
struct LotData : BuilderData {
    qint64 job = addJob("J-1", "Elm");
    qint64 lot = addLot("A");

    qint64 addLot(const Value& lotBlock) {
        return db.add("JobLot", {{"JobKey", job}, {"LotBlock", lotBlock}, {"PlanName", "Aspen"}});
    }
    qint64 addTask(const Value& name, qint64 ofLot, qint64 master = 0, const Value& price = 10.0) {
        return db.add("JobLotTask", {{"JobLotKey", ofLot},
                                     {"CodeKey", framing},
                                     {"MasterTaskKey", master},
                                     {"Name", name},
                                     {"MasterPrice", price},
                                     {"CustomTask", "N"}});
    }
    qint64 addGroup(const char* name) {
        return db.add("Code", {{"Code1", 5}, {"Code2", builder}, {"Description", name}});
    }
    void addGroupTask(qint64 group, qint64 master, const Value& price) {
        db.add("ContractorOptionGroup", {{"ContractorKey", builder},
                                         {"CodeKey", group},
                                         {"MasterTaskKey", master},
                                         {"MasterPrice", price},
                                         {"ExcludeDependency", true}});
    }
    /// Puts an option under a task, which becomes a parent.
    qint64 addOption(const char* name, qint64 parent) {
        place(parent, {parent, 0});
        const qint64 lotOfParent = db.ask("SELECT JobLotKey" + fromTask(parent)).toLong();
        const qint64 option = addTask(name, lotOfParent, 0, 5.0);
        place(option, {parent, 1});
        return option;
    }
    void place(qint64 task, const TreePlace& where) {
        db.run("UPDATE JobLotTask SET ParentKey=" + QString::number(where.parentKey) +
               ", Child=" + QString::number(where.child) + " WHERE JobLotTaskKey=" + QString::number(task));
    }
    static QString fromTask(qint64 task) {
        return " FROM JobLotTask WHERE JobLotTaskKey=" + QString::number(task);
    }

    /// The tree of a lot in the order of its grid: a line for each task, "+" before a parent, the parent's
    /// name behind a child.
    std::vector<QString> tree(qint64 ofLot) {
        std::vector<QString> lines;
        Recordset tasks;
        tasks.Open("SELECT * FROM JobLotTask WHERE JobLotKey=" + QString::number(ofLot) +
                       " ORDER BY Name, ParentKey, Child",
                   db.connection());
        for (; !tasks.atEnd(); tasks.MoveNext())
            lines.push_back(line(tasks));
        return lines;
    }

private:
    QString line(const Recordset& task) {
        QString name = task["Name"].isNull() ? QString("Null") : task["Name"].toText();
        const qint64 parent = task["ParentKey"].toLong();
        if (task["Child"].toLong() != 0)
            return name + " < " + db.ask("SELECT Name" + fromTask(parent)).toText();
        if (parent == 0)
            return name;
        return (parent == task["JobLotTaskKey"].toLong() ? u'+' : u'?') + name;
    }
};

/// Stands for the screen with the lots.
class LotCaller : public CurrentLotCaller {
public:
    [[nodiscard]] CurrentLot currentLot() const override { return lot; }

    CurrentLot lot;
};

} // namespace tarnwell::test
