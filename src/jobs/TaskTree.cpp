#include "jobs/TaskTree.h"

#include "builders/CommitWritten.h"
#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

constexpr qint64 isChild = 1;

QString placesWhere(const char* column, qint64 key) {
    return QString("SELECT ParentKey, Child FROM JobLotTask WHERE ") + column + u'=' + QString::number(key);
}

void setPlace(Recordset& tasks, const TreePlace& place) {
    tasks.set("ParentKey", place.parentKey);
    tasks.set("Child", place.child);
    tasks.Update();
}

/// Raises NoCurrentRecord when the task no longer exists.
void makePlain(Connection& connection, qint64 taskKey) {
    Recordset task;
    task.Open(placesWhere("JobLotTaskKey", taskKey), connection, CursorType::Static, LockType::Optimistic);
    setPlace(task, {});
}

void makeOptionsPlain(Connection& connection, qint64 parentKey) {
    Recordset options;
    options.Open(placesWhere("ParentKey", parentKey), connection, CursorType::Static, LockType::Optimistic);
    for (; !options.atEnd(); options.MoveNext())
        setPlace(options, {});
}

bool hasOptions(Connection& connection, qint64 parentKey) {
    return firstValue(connection, placesWhere("ParentKey", parentKey) + " AND Child=1").has_value();
}

qint64 addLot(Connection& connection, const LotToCopy& source) {
    Recordset lot;
    lot.Open("SELECT * FROM JobLot WHERE JobLotKey=0", connection, CursorType::Static, LockType::Optimistic);
    lot.AddNew();
    lot.set("JobKey", source.jobKey);
    lot.set("LotBlock", FieldText(source.lotBlock));
    lot.set("PlanName", FieldText(source.planName));
    lot.set("Address", FieldText(source.address));
    lot.set("ContractorPlanKey", source.contractorPlanKey);
    lot.Update();
    return lot["JobLotKey"].toLong();
}

/// Copies the tasks of one lot in the order of the tree and links the copies as the walk goes: a child
/// belongs to the parent that was seen last, and a plain task in between parts them.
class TaskCopier {
public:
    TaskCopier(Connection& connection, qint64 newLot) : m_connection(connection), m_newLot(newLot) {
        m_copies.Open("JobLotTask", connection, CursorType::Dynamic, LockType::Optimistic);
    }

    void copy(const Recordset& source) {
        const qint64 parentKey = NullToZero(source["ParentKey"]).toLong();
        const bool child = NullToZero(source["Child"]).toLong() != 0;
        addCopy(source);
        if (parentKey != 0 && !child)
            beginParent(parentKey);
        else if (parentKey != 0 && parentKey == m_oldParent)
            m_hasChild = isChild;
        else
            m_oldParent = m_newParent = m_hasChild = 0;
        if (m_newParent != 0)
            setPlace(m_copies, {m_newParent, m_hasChild});
    }

private:
    /// The copy stays the current row. It is not scheduled: dates and employee are left out.
    void addCopy(const Recordset& source) {
        m_copies.AddNew();
        m_copies.set("JobLotKey", m_newLot);
        for (const char* same :
             {"MasterTaskKey", "CodeKey", "ContractorTaskOptionKey", "ContractorPlanTaskKey", "MasterPrice",
              "ExcludeDependency", "Name", "CustomTask"})
            m_copies.set(same, source[same]);
        m_copies.set("ParentKey", 0);
        m_copies.set("Child", 0);
        m_copies.Update();
    }

    void beginParent(qint64 sourceKey) {
        // The parent before it had no option right behind it. It is the task of the source lot that becomes
        // plain, not its copy.
        if (m_oldParent != 0 && m_hasChild == 0)
            makePlain(m_connection, m_oldParent);
        m_oldParent = sourceKey;
        m_newParent = m_copies["JobLotTaskKey"].toLong();
        m_hasChild = 0;
    }

    Connection& m_connection;
    qint64 m_newLot;
    Recordset m_copies;
    qint64 m_oldParent = 0; ///< The parent seen last, in the source lot; 0 for none.
    qint64 m_newParent = 0; ///< Its copy.
    qint64 m_hasChild = 0;  ///< 1 from its first option on.
};

} // namespace

void deleteFromTree(Connection& connection, const TreePlace& place, const std::function<void()>& deleteRow) {
    commitWritten(connection, [&] {
        deleteRow();
        if (place.parentKey != 0 && place.child == 0)
            makeOptionsPlain(connection, place.parentKey);
        else if (place.child == isChild && !hasOptions(connection, place.parentKey))
            makePlain(connection, place.parentKey);
    });
}

qint64 copyLot(Connection& connection, const LotToCopy& source) {
    qint64 newLot = 0;
    commitWritten(connection, [&] {
        newLot = addLot(connection, source);
        Recordset tasks;
        tasks.Open("SELECT * FROM JobLotTask WHERE JobLotKey=" + FieldText(source.jobLotKey) +
                       " ORDER BY Name, ParentKey, Child",
                   connection);
        TaskCopier copier(connection, newLot);
        for (; !tasks.atEnd(); tasks.MoveNext())
            copier.copy(tasks);
    });
    return newLot;
}

} // namespace tarnwell
