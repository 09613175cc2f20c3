#include "jobs/PlanTasks.h"

#include "builders/BuilderRecord.h"
#include "builders/CommitWritten.h"
#include "data/RunTimeError.h"
#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGeneral.h"

#include <set>

namespace tarnwell {

namespace {

constexpr int lineLength = 60, namePosition = 1, shownName = 25, pricePosition = 26, priceWidth = 8;
constexpr auto priceFormat = "#####.#0";

/// The master tasks of a lot, read once: the list asks for each task of the plan.
class HeldTasks {
public:
    HeldTasks(Connection& connection, const Value& jobLotKey) {
        Recordset tasks;
        tasks.Open("SELECT MasterTaskKey FROM JobLotTask WHERE JobLotKey=" + FieldText(jobLotKey),
                   connection);
        m_hasTasks = !tasks.atEnd();
        for (; !tasks.atEnd(); tasks.MoveNext())
            if (const Value key = tasks.field(0); !key.isNull())
                m_keys.insert(key.toLong());
    }

    [[nodiscard]] bool holds(const Value& masterTaskKey) const {
        if (!m_hasTasks)
            return false;
        if (masterTaskKey.isNull())
            raise(Failure::WrongArguments, "MasterTaskKey=");
        return m_keys.contains(masterTaskKey.toLong());
    }

private:
    std::set<qint64> m_keys;
    bool m_hasTasks = false;
};

QString taskLine(const Recordset& task) {
    QString line(lineLength, u' ');
    overlay(line, namePosition, FieldText(task["Name"]), shownName);
    overlay(line, pricePosition, u' ' + Format(task["MasterPrice"], priceFormat).rightJustified(priceWidth));
    return line;
}

QString rowOf(const char* table, const char* keyColumn, const Value& key) {
    return QString("SELECT * FROM ") + table + " WHERE " + keyColumn + u'=' + FieldText(key);
}

/// Opens the lot's row, or adds it, names the plan where none is named, and returns the lot's key.
Value writeLot(Connection& connection, const CurrentLot& target, const ListItem& plan) {
    const bool isNew = target.jobLotKey.isNoKey();
    Recordset lot;
    lot.Open(isNew ? QString("JobLot") : rowOf("JobLot", "JobLotKey", target.jobLotKey), connection,
             CursorType::Dynamic, LockType::Optimistic);
    if (isNew) {
        lot.AddNew();
        lot.set("JobKey", target.jobKey);
    }
    if (isNew || FieldText(lot["PlanName"]).isEmpty())
        lot.set("PlanName", plan.text);
    if (isNew || lot["ContractorPlanKey"].isNoKey())
        lot.set("ContractorPlanKey", plan.key);
    lot.Update();
    return lot["JobLotKey"];
}

void copyTask(const Recordset& planTask, const Value& jobLotKey, Recordset& rows) {
    rows.AddNew();
    rows.set("JobLotKey", jobLotKey);
    for (const char* same : {"ContractorPlanTaskKey", "MasterTaskKey", "CodeKey", "MasterPrice"})
        rows.set(same, planTask[same]);
    if (const Value name = planTask["Name"]; !name.isNull())
        rows.set("Name", name);
    rows.set("CustomTask", FieldText(planTask["CustomTask"]));
    rows.Update();
}

} // namespace

std::vector<ListItem> readPlans(Connection& connection, qint64 contractorKey) {
    Recordset plans;
    plans.Open(plansOfBuilder(contractorKey), connection);
    std::vector<ListItem> lines;
    for (; !plans.atEnd(); plans.MoveNext())
        lines.emplace_back(FieldText(plans["PlanName"]), plans["ContractorPlanKey"].toLong());
    return lines;
}

std::vector<ListItem> readPlanTasks(Connection& connection, qint64 planKey, const Value& jobLotKey) {
    const HeldTasks lot(connection, jobLotKey);
    Recordset tasks;
    tasks.Open("SELECT ContractorPlanTask.*, Code.Description FROM ContractorPlanTask, Code WHERE "
               "Code.Deleted=0 AND ContractorPlanKey=" +
                   QString::number(planKey) +
                   " AND ContractorPlanTask.CodeKey=Code.CodeKey ORDER BY Code.Description, Name",
               connection);
    std::vector<ListItem> lines;
    qint64 LastCode = 0;
    for (; !tasks.atEnd(); tasks.MoveNext()) {
        if (lot.holds(tasks["MasterTaskKey"]))
            continue;
        if (const qint64 category = tasks["CodeKey"].toLong(); category != LastCode) {
            LastCode = category;
            lines.push_back(pickingHeading(tasks["Description"]));
        }
        lines.emplace_back(taskLine(tasks), tasks["ContractorPlanTaskKey"].toLong());
    }
    return lines;
}

void addPlanTasks(Connection& connection, const CurrentLot& target, const ListItem& plan,
                  std::span<const ListItem> picked) {
    commitWritten(connection, [&] {
        const Value jobLotKey = writeLot(connection, target, plan);
        Recordset rows;
        rows.Open("JobLotTask", connection, CursorType::Dynamic, LockType::Optimistic);
        for (const ListItem& line : picked) {
            if (line.key == 0)
                continue;
            Recordset task;
            task.Open(rowOf("ContractorPlanTask", "ContractorPlanTaskKey", line.key), connection);
            if (!task.atEnd())
                copyTask(task, jobLotKey, rows);
        }
    });
}

} // namespace tarnwell
