#include "builders/TaskPicking.h"

#include "builders/CommitWritten.h"
#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGeneral.h"

#include <optional>

namespace tarnwell {

namespace {

constexpr int lineLength = 50, shownName = 30, storedName = 50;
constexpr qint64 nonLinkedKey = 1; // Any number but 0 marks a line as one to add.
constexpr auto headingMark = "----";

const char* tableOf(int mode) {
    if (mode == PickingMode::Plan)
        return "ContractorPlanTask";
    return mode == PickingMode::OptionGroup ? "ContractorOptionGroup" : "JobLotTask";
}

const char* ownerColumnOf(int mode) {
    if (mode == PickingMode::Plan)
        return "ContractorPlanKey";
    return mode == PickingMode::OptionGroup ? "ContractorKey" : "JobLotKey";
}

/// Categories and tasks of the same name keep the order of their keys, so that a category stays together.
QString freeTasks(int mode, const PickingTarget& target) {
    const QString table = tableOf(mode);
    QString owned = QString(ownerColumnOf(mode)) + u'=' + FieldText(target.ownerKey);
    if (mode == PickingMode::OptionGroup)
        owned += " AND " + table + ".CodeKey=" + FieldText(target.groupKey);
    return "SELECT Code.CodeKey, Code.Description, MasterTask.MasterTaskKey, MasterTask.Name FROM Code INNER "
           "JOIN MasterTask ON Code.CodeKey = MasterTask.CodeKey WHERE Code.Deleted=0 AND Code.Code1=2 AND "
           "MasterTask.Deleted=0 AND NOT EXISTS (SELECT * FROM " +
           table + " WHERE " + owned + " AND " + table +
           ".MasterTaskKey=MasterTask.MasterTaskKey) ORDER BY Code.Description, Code.CodeKey, "
           "MasterTask.Name, MasterTask.MasterTaskKey";
}

QString taskLine(const QString& name) {
    QString line(lineLength, u' ');
    overlay(line, 1, name, shownName);
    return line;
}

std::vector<ListItem> readFreeTasks(Connection& connection, int mode, const PickingTarget& target) {
    Recordset tasks;
    tasks.Open(freeTasks(mode, target), connection);
    std::vector<ListItem> lines;
    std::optional<qint64> category;
    for (; !tasks.atEnd(); tasks.MoveNext()) {
        if (const qint64 key = tasks.field(0).toLong(); key != category) {
            category = key;
            lines.push_back(pickingHeading(tasks.field(1)));
        }
        lines.emplace_back(taskLine(FieldText(tasks.field(3))), tasks.field(2).toLong());
    }
    return lines;
}

PickingList readOptions(Connection& connection, const PickingTask& task) {
    const QString linked =
        "FROM ContractorTaskOption WHERE ContractorPlanTaskKey=" + FieldText(task.contractorPlanTaskKey);
    PickingList list;
    list.nonLinked =
        !firstValue(connection, "SELECT ContractorTaskOptionKey " + linked + " ORDER BY Name").has_value();
    Recordset options;
    options.Open(list.nonLinked
                     ? QString("SELECT * FROM Code WHERE Deleted=0 AND Code1=4 ORDER BY Description")
                     : "SELECT * " + linked +
                           " AND NOT EXISTS (SELECT * FROM JobLotTask WHERE "
                           "JobLotTask.ContractorTaskOptionKey=ContractorTaskOption.ContractorTaskOptionKey "
                           "AND JobLotTask.ParentKey=" +
                           FieldText(task.parentKey) + ") ORDER BY Name",
                 connection);
    for (; !options.atEnd(); options.MoveNext())
        list.lines.emplace_back(FieldText(options[list.nonLinked ? "Description" : "Name"]),
                                list.nonLinked ? nonLinkedKey : options["ContractorTaskOptionKey"].toLong());
    return list;
}

Value textOf(const Value& value) {
    return value.isNull() ? Value("") : value;
}

/// False when the catalogue no longer has the task.
bool addTask(Connection& connection, int mode, const PickingTarget& target, qint64 key, Recordset& rows) {
    Recordset master;
    master.Open("SELECT * FROM MasterTask WHERE Deleted=0 AND MasterTaskKey=" + QString::number(key),
                connection);
    if (master.atEnd())
        return false;
    rows.AddNew();
    rows.set(ownerColumnOf(mode), target.ownerKey);
    for (const char* same : {"MasterTaskKey", "MasterPrice", "ExcludeDependency"})
        rows.set(same, master[same]);
    if (mode == PickingMode::OptionGroup) {
        rows.set("CodeKey", target.groupKey);
        return true;
    }
    rows.set("CodeKey", master["CodeKey"]);
    for (const char* text : {"Name", "CustomTask"})
        rows.set(text, textOf(master[text]));
    return true;
}

Value optionPrice(Connection& connection, qint64 key) {
    Recordset option;
    option.Open("SELECT MasterPrice FROM ContractorTaskOption WHERE ContractorTaskOptionKey=" +
                    QString::number(key),
                connection);
    return option.field(0);
}

void addOption(Connection& connection, const PickingTarget& target, bool nonLinked, const ListItem& line,
               Recordset& rows) {
    const PickingTask& task = target.task;
    const Value price = nonLinked ? Value(0) : optionPrice(connection, line.key);
    rows.AddNew();
    rows.set("JobLotKey", target.ownerKey);
    rows.set("MasterTaskKey", task.masterTaskKey);
    rows.set("ParentKey", task.jobLotTaskKey);
    rows.set("Child", 1);
    rows.set("Name", (FieldText(task.name) + u' ' + line.text).left(storedName));
    rows.set("CustomTask", "Y");
    rows.set("CodeKey", task.codeKey);
    rows.set("ExcludeDependency", task.excludeDependency);
    if (!nonLinked)
        rows.set("ContractorTaskOptionKey", line.key);
    rows.set("MasterPrice", price);
}

} // namespace

ListItem pickingHeading(const Value& description) {
    return {headingMark + FieldText(description), 0};
}

PickingList readPickingList(Connection& connection, int mode, const PickingTarget& target) {
    if (mode == PickingMode::TaskOptions)
        return readOptions(connection, target.task);
    return {.lines = readFreeTasks(connection, mode, target)};
}

bool isReachedBySelectAll(const QString& line) {
    return !line.startsWith(QLatin1String("--")) && !line.trimmed().endsWith(u'Y');
}

void addPicked(Connection& connection, int mode, const PickingTarget& target, bool nonLinked,
               std::span<const ListItem> picked) {
    commitWritten(connection, [&] {
        Recordset rows;
        rows.Open(tableOf(mode), connection, CursorType::Dynamic, LockType::Optimistic);
        for (const ListItem& line : picked) {
            if (line.key == 0)
                continue;
            if (mode == PickingMode::TaskOptions)
                addOption(connection, target, nonLinked, line, rows);
            else if (!addTask(connection, mode, target, line.key, rows))
                continue;
            rows.Update();
        }
    });
}

} // namespace tarnwell
