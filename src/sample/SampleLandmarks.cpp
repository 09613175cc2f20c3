#include "sample/SampleJobs.h"
#include "sample/SampleWords.h"

namespace tarnwell::sample {

JobFrame JobWriter::writeLandmarkJob(const Landmark& mark) {
    return writeJob(QString::fromLatin1(mark.where), QString::fromLatin1(mark.jobName),
                    baseDate.addMonths(-5), true, 0);
}

void JobWriter::writeLandmarks() {
    writeBigJob();
    writeBigLot();
    writeOptionLot();
}

void JobWriter::writeBigJob() {
    const JobFrame job = writeLandmarkJob(landmark::bigJob);
    for (int i = 0; i < landmark::lotsOfBigJob; ++i) {
        const LotFrame lot = writeLot(job, i);
        LotTaskWriter writer(m_tables, m_random, m_staff, lot, 2);
        writer.addPlanTasks(1);
        if (i % 5 < 3)
            m_payments.payOnce(writer.tasks().front());
        writer.addMasterTask(m_catalogue.finalTask);
    }
}

void JobWriter::writeBigLot() {
    const JobFrame job = writeLandmarkJob(landmark::bigLot);
    const LotFrame lot = writeLot(job, 0, false);
    LotTaskWriter writer(m_tables, m_random, m_staff, lot, landmark::tasksOfBigLot);
    const auto& offered = m_catalogue.serviceTasks;
    for (int i = 0; i < landmark::tasksOfBigLot; ++i) {
        const MasterTask& master = offered[static_cast<std::size_t>(i) % offered.size()];
        const auto floor = i / static_cast<int>(offered.size());
        if (floor == 0)
            writer.addMasterTask(master);
        else
            writer.addTyped(m_catalogue.serviceKey, master.trade,
                            QStringLiteral("%1, level %2").arg(master.name).arg(floor + 1), master.cents);
    }
    for (std::size_t i = 0; i < writer.tasks().size(); i += 2)
        m_payments.payOnce(writer.tasks()[i]);
}

void JobWriter::writeOptionLot() {
    const JobFrame job = writeLandmarkJob(landmark::optionLot);
    const LotFrame lot = writeLot(job, 0, false);
    LotTaskWriter writer(m_tables, m_random, m_staff, lot, landmark::tasksOfOptionLot);
    for (int i = 0; i < landmark::tasksOfOptionLot; ++i) {
        const MasterTask& master = m_catalogue.serviceTasks[static_cast<std::size_t>(i)];
        if (i % 10 == 0)
            writer.addParent(master, landmark::optionsOfOptionLot * 10 / landmark::tasksOfOptionLot,
                             QStringLiteral("upgrade"), 4500);
        else
            writer.addMasterTask(master);
    }
    for (std::size_t i = 0; i < writer.tasks().size(); i += 3)
        m_payments.payOnce(writer.tasks()[i]);
}

JobWriter::Shares JobWriter::sharesLeft() const {
    const int landmarkJobs = static_cast<int>(m_tables.job.rows());
    const int closed = m_scale.jobs - m_scale.openJobs;
    const int finals = totals::finalTasks - landmark::lotsOfBigJob;
    const int tasks = totals::lotTasks - static_cast<int>(m_tables.lotTask.rows()) - finals;
    const int closedTasks = closed * totals::tasksPerClosedLot;
    return {.openLots = {finals, m_scale.openJobs - landmarkJobs},
            .closedTasks = {closedTasks, closed},
            .openTasks = {tasks - closedTasks, finals},
            .payments = {totals::payments - m_tables.payment.rows(), tasks}};
}

} // namespace tarnwell::sample
