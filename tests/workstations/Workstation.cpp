#include "workstations/Workstation.h"

#include "builders/TaskPicking.h"
#include "data/recordset/Recordset.h"
#include "jobs/JobOptionGroup.h"
#include "jobs/PlanTasks.h"
#include "jobs/TaskTree.h"
#include "master/JobLots.h"
#include "master/OptionGroups.h"
#include "master/PriceCascade.h"
#include "timecard/PaymentCorrection.h"
#include "timecard/PaymentRules.h"
#include "timecard/TaskHistory.h"

#include <QFile>
#include <QRandomGenerator>
#include <QThread>

namespace tarnwell::test {

namespace {

constexpr int mostLots = 12, mostTasksOfLot = 40;

class Workstation {
public:
    explicit Workstation(const WorkOrder& order)
        : m_name(order.name), m_left(order.actions), m_random(order.seed), m_journal(order.journal) {
        m_connection.setConnectionString(order.connectionString);
        if (!m_journal.open(QIODevice::WriteOnly | QIODevice::Append))
            throw std::runtime_error("the journal can't be written");
    }

    void workAll() {
        for (; m_left > 0; --m_left)
            try {
                if (m_connection.State() == ObjectState::Closed)
                    m_connection.Open();
                workOnce();
            } catch (const RunTimeError& error) {
                report({"refused", QString::number(error.number()), error.description()});
            }
    }

private:
    void workOnce() {
        struct Kind {
            void (Workstation::*action)();
            int weight;
        };
        static constexpr Kind kinds[] = {{&Workstation::pay, 40},       {&Workstation::correct, 25},
                                         {&Workstation::remove, 3},     {&Workstation::cascade, 8},
                                         {&Workstation::editLot, 10},   {&Workstation::fillLot, 4},
                                         {&Workstation::applyGroup, 4}, {&Workstation::copyALot, 2},
                                         {&Workstation::deleteTask, 6}, {&Workstation::deleteLot, 2}};
        int chosen = m_random.bounded(106);
        for (const auto& [action, weight] : kinds)
            if ((chosen -= weight) < 0)
                return (this->*action)();
    }

    void pay() {
        const Value task = anyOf("SELECT JobLotTaskKey FROM JobLotTask");
        Recordset row;
        row.Open("SELECT * FROM JobLotTask WHERE JobLotTaskKey=" + task.toText(), m_connection);
        const QString note = newNote();
        const QString price = newPrice();
        const PaymentSelection selection{.jobLotTaskKey = task,
                                         .codeKey = row["CodeKey"],
                                         .excludeDependency = row["ExcludeDependency"],
                                         .taskEmployeeKey = row["EmployeeKey"],
                                         .jobLotKey = row["JobLotKey"],
                                         .excludeDependencyCheck = false,
                                         .employeeKey = anyEmployee(),
                                         .priceText = price,
                                         .completed = DateTime{QDate(2026, 3, 6)},
                                         .note = note};
        report({"tries", note, price});
        if (applyPayment(m_connection, selection,
                         {.ask = [](const MessageRequest&) { return Answer::Yes; }}) != PaymentResult::Paid)
            throw std::logic_error("an accepted payment was not paid");
        report({"paid", note});
        expectInHistory(task, row["MasterPrice"], note);
    }

    /// Somebody else may have corrected or removed it since.
    void expectInHistory(const Value& task, const Value& price, const QString& note) {
        const auto stored =
            firstValue(m_connection, "SELECT JobTaskEmployee FROM JobTaskEmployee WHERE Note='" + note + "'");
        int lines = 0;
        PaymentFigures figures;
        (void)readTaskHistory(m_connection, task, price, figures, [&](const QString&, qint64 key) {
            lines += stored && key == stored->toLong() ? 1 : 0;
        });
        if (lines == 0 && noteOf(stored ? stored->toLong() : 0) == note)
            throw std::logic_error("a stored payment is not in its task's history");
    }

    void correct() {
        const qint64 payment = recentPayment();
        const ShownPayment shown = readPayment(m_connection, payment);
        lookAtIt();
        const QString first = firstNote(shown.note.toText());
        const QString note = first + '|' + newNote();
        const QString price = newPrice();
        report({"tries", note, price});
        acceptCorrection(m_connection, payment, shown.row, {price, note, anyEmployee()});
        report({"corrected", first, shown.note.toText(), note});
    }

    void remove() {
        const qint64 payment = recentPayment();
        const QString first = firstNote(noteOf(payment));
        report({"removes", first});
        if (removePayment(m_connection, payment, [](const MessageRequest&) { return Answer::Yes; }))
            report({"removed", first});
    }

    void cascade() {
        const Value master = anyOf("SELECT MasterTaskKey FROM MasterTask");
        applyCascade(m_connection, {master, "Carried", newPrice().toDouble(), false},
                     {.target = CascadeTarget::BuildersAndJobs, .price = true});
    }

    void editLot() {
        Recordset lot;
        lot.Open("SELECT * FROM JobLot WHERE JobLotKey=" + anyLot().toText(), m_connection,
                 CursorType::Keyset, LockType::Optimistic);
        const QString shown = lot["Address"].isNull() ? QString() : lot["Address"].toText();
        lookAtIt();
        const QString written = newNote();
        lot.set("Address", written);
        lot.Update();
        report({"edited", lot["JobLotKey"].toText(), shown, written});
    }

    void fillLot() {
        const Value lot = anyLot();
        if (tasksOf(lot) > mostTasksOfLot)
            return;
        const auto [plan, planName] =
            std::pair(anyOf("SELECT ContractorPlanKey FROM ContractorPlan").toLong(), "Aspen");
        const std::vector<ListItem> offered = readPlanTasks(m_connection, plan, lot);
        lookAtIt();
        addPlanTasks(m_connection,
                     {.jobKey = 1, .contractorKey = 1, .jobLotKey = lot, .contractorPlanKey = plan},
                     {planName, plan}, offered);
    }

    void applyGroup() {
        const Value lot = anyLot();
        if (lot == firstLot() || tasksOf(lot) > mostTasksOfLot)
            return;
        Recordset rows;
        rows.Open(optionGroupTasks, m_connection, CursorType::Static, LockType::Optimistic);
        rows.setFilter("CodeKey=" + anyOf("SELECT CodeKey FROM Code WHERE Code1=5").toText());
        lookAtIt();
        applyOptionGroup(m_connection, rows, "Deck", lot);
    }

    /// The first lot has no options. Others are not copied: a copy takes a parent apart whose options do not
    /// follow it by name, as they don't where two stations filled a lot from the plan at once.
    void copyALot() {
        if (firstValue(m_connection, "SELECT COUNT(*) FROM JobLot")->toLong() > mostLots)
            return;
        Recordset lot;
        lot.Open("SELECT * FROM JobLot WHERE JobLotKey=" + firstLot().toText(), m_connection);
        const LotToCopy source{lot["JobLotKey"], lot["JobKey"],  lot["LotBlock"],
                               lot["PlanName"],  lot["Address"], lot["ContractorPlanKey"]};
        lookAtIt();
        copyLot(m_connection, source);
    }

    /// As the grid of the lot's tasks does it.
    void deleteTask() {
        Recordset task;
        task.Open("SELECT * FROM JobLotTask WHERE JobLotTaskKey=" +
                      anyOf("SELECT JobLotTaskKey FROM JobLotTask").toText(),
                  m_connection, CursorType::Keyset, LockType::Optimistic);
        const TreePlace place{task["ParentKey"].toLong(), task["Child"].toLong()};
        lookAtIt();
        deleteFromTree(m_connection, place, [&] { task.Delete(); });
    }

    void deleteLot() {
        const Value chosen = anyLot();
        if (chosen == firstLot())
            return;
        Recordset lot;
        lot.Open("SELECT * FROM JobLot WHERE JobLotKey=" + chosen.toText(), m_connection, CursorType::Keyset,
                 LockType::Optimistic);
        lookAtIt();
        lot.Delete();
    }

    void startAgain() {
        m_connection.Close();
        m_connection.Open();
    }

    /// The first value of any of the statement's rows. Raises NoCurrentRecord when there is none.
    Value anyOf(const QString& statement, int ofTheFirst = 0) {
        Recordset rows;
        rows.setMaxRecords(ofTheFirst);
        rows.Open(statement, m_connection);
        rows.Move(m_random.bounded(std::max(rows.RecordCount(), 1)));
        return rows.field(0);
    }
    /// One of the last few, which others are after as well.
    qint64 recentPayment() {
        return anyOf("SELECT JobTaskEmployee FROM JobTaskEmployee ORDER BY JobTaskEmployee DESC", 6).toLong();
    }
    Value firstLot() { return anyOf("SELECT JobLotKey FROM JobLot ORDER BY JobLotKey", 1); }
    Value anyLot() { return anyOf("SELECT JobLotKey FROM JobLot"); }
    qint64 anyEmployee() { return anyOf("SELECT EmployeeKey FROM Employee").toLong(); }
    QString newNote() { return m_name + '-' + QString::number(m_left); }
    QString newPrice() { return QString::number(m_random.bounded(1, 99999) / 100.0, 'f', 2); }
    static QString firstNote(const QString& note) { return note.section('|', 0, 0); }
    QString noteOf(qint64 payment) {
        const auto note = firstValue(m_connection, "SELECT Note FROM JobTaskEmployee WHERE JobTaskEmployee=" +
                                                       QString::number(payment));
        return note ? note->toText() : QString();
    }
    qint64 tasksOf(const Value& lot) {
        return firstValue(m_connection, "SELECT COUNT(*) FROM JobLotTask WHERE JobLotKey=" + lot.toText())
            ->toLong();
    }
    /// Somebody else may write meanwhile.
    void lookAtIt() { QThread::msleep(static_cast<unsigned long>(m_random.bounded(3))); }
    void report(const QStringList& parts) {
        m_journal.write(parts.join('\t').replace('\n', ' ').toUtf8() + '\n');
        m_journal.flush();
    }

    QString m_name;
    int m_left;
    QRandomGenerator m_random;
    QFile m_journal;
    Connection m_connection;
};

} // namespace

QStringList WorkOrder::arguments() const {
    return {connectionString, name, QString::number(seed), QString::number(actions), journal};
}

WorkOrder WorkOrder::fromArguments(const QStringList& arguments) {
    return {arguments.at(0), arguments.at(1), arguments.at(2).toUInt(), arguments.at(3).toInt(),
            arguments.at(4)};
}

int work(const WorkOrder& order) {
    try {
        Workstation(order).workAll();
        return 0;
    } catch (const std::exception& error) {
        qCritical("%s: %s", qUtf8Printable(order.name), error.what());
        return 1;
    }
}

} // namespace tarnwell::test
