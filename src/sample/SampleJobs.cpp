#include "sample/SampleJobs.h"

#include "sample/SampleWords.h"

#include <algorithm>

namespace tarnwell::sample {

namespace {

/// What a name of 30 characters does to a list is worth a look.
constexpr const char* longestJobName = "Tanglewood Estates Section 12B";

Value jobName(SampleRandom& random, int index) {
    if (index % 12 == 5)
        return longestJobName;
    if (index % 40 == 17)
        return Value::null();
    return QStringLiteral("%1 Ph %2")
        .arg(QLatin1String(random.pick(words::subdivisions())))
        .arg(index % 4 + 1);
}

Value jobForeman(SampleRandom& random, const Staff& staff, int index) {
    if (index % 9 == 7)
        return Value::null();
    return index % 9 == 8 ? Value("") : Value(random.pick(staff.foremen()));
}

} // namespace

JobWriter::JobWriter(SampleTables& tables, SampleRandom& random, const Scale& scale,
                     const Catalogue& catalogue, const std::vector<Builder>& builders, const Staff& staff)
    : m_tables(tables), m_random(random), m_scale(scale), m_catalogue(catalogue), m_builders(builders),
      m_staff(staff), m_payments(tables, random, staff) {}

// The landmarks come first: what they hold is taken off the totals before these are dealt out.
void JobWriter::writeAll(const std::function<void(int)>& progress) {
    int jobs = m_scale.jobs;
    if (m_scale.exactTotals) {
        writeLandmarks();
        m_shares = sharesLeft();
        jobs -= static_cast<int>(m_tables.job.rows());
    }
    for (int index = 0; index < jobs; ++index) {
        writeRegularJob(index, jobs);
        m_tables.breathe();
        progress(static_cast<int>(m_tables.job.rows()));
    }
}

// The year of the start and a running number; numbers that were given up leave gaps.
QString JobWriter::nextNumber(QDate start) {
    int& last = m_lastNumber.try_emplace(start.year(), 1000).first->second;
    last += m_scale.exactTotals ? 1 : m_random.between(1, 4);
    return QStringLiteral("%1-%2")
        .arg(start.year() % 100, 2, 10, QLatin1Char('0'))
        .arg(last, 4, 10, QLatin1Char('0'));
}

JobFrame JobWriter::writeJob(const QString& number, const QString& name, QDate start, bool open, int index) {
    const Builder& builder = m_random.pick(m_builders);
    const QDate completed = std::min(start.addDays(m_random.between(150, 230)), baseDate.addDays(-2));
    JobFrame job{.builder = &builder, .name = name, .start = start, .open = open};
    job.key = m_tables.job.add({number, name.isNull() ? Value::null() : Value(name),
                                jobForeman(m_random, m_staff, index), builder.key,
                                open ? Value::null() : Value(DateTime{completed})});
    return job;
}

void JobWriter::writeRegularJob(int index, int jobs) {
    const QDate opening = baseDate.addMonths(-m_scale.months);
    // The last job begins some weeks before the base date, so that every open job has seen work.
    const qint64 days = opening.daysTo(baseDate.addDays(-25));
    const QDate start = opening.addDays(days * index / std::max(jobs - 1, 1));
    const Value name = jobName(m_random, index);
    const int closed = m_scale.jobs - m_scale.openJobs;
    const JobFrame job =
        writeJob(nextNumber(start), name.isNull() ? QString() : name.toText(), start, index >= closed, index);
    const int lots = !m_scale.exactTotals ? m_random.between(index % 2 + 1, m_scale.lotsPerJob)
                     : job.open           ? m_shares.openLots.take()
                                          : 1;
    for (int lot = 0; lot < lots; ++lot)
        if (m_scale.exactTotals)
            writeExactLot(job, lot);
        else
            writeBelievableLot(job, lot, index);
}

LotFrame JobWriter::writeLot(const JobFrame& job, int lotIndex, bool withPlan) {
    const int number = m_lots++;
    LotFrame lot{.builder = job.builder,
                 .plan = withPlan ? &m_random.pick(job.builder->plans) : nullptr,
                 .start = job.start.addDays(qint64{12} * std::min(lotIndex, 12)),
                 .days = m_random.between(95, 170),
                 .scheduled = job.open ? lotIndex % 2 == 0 : number % 10 == 3};
    lot.key = m_tables.lot.add(
        {job.key, QStringLiteral("%1/%2").arg(lotIndex + 1).arg(number % 9 + 1),
         lot.plan ? Value(lot.plan->name) : Value(),
         number % 15 == 14 ? Value("")
                           : Value(QStringLiteral("%1 %2")
                                       .arg(m_random.between(100, 9999))
                                       .arg(QLatin1String(m_random.pick(words::streets())))),
         lot.plan ? Value(lot.plan->key) : Value(), number % 8 == 5 ? Value(true) : Value()});
    return lot;
}

void JobWriter::writeBelievableLot(const JobFrame& job, int lotIndex, int jobIndex) {
    const LotFrame lot = writeLot(job, lotIndex);
    const int count = m_random.between(m_scale.tasksPerLot * 3 / 5, m_scale.tasksPerLot);
    const bool optioned = (jobIndex + lotIndex) % 2 == 0;
    const OptionGroup* group = optioned ? &m_random.pick(job.builder->groups) : nullptr;
    LotTaskWriter writer(m_tables, m_random, m_staff, lot, count + 1);
    writer.addPlanTasks(count, group);
    // Work that nobody had foreseen is typed into the lot's grid.
    if (lotIndex == 1) {
        writer.addTyped(m_catalogue.tradeKeys[5], 5, QStringLiteral("Repair water damage"), 12000);
        writer.addTyped(m_catalogue.tradeKeys[6], 6, QStringLiteral("Owner's change of color"), 0);
    }
    if (group != nullptr)
        writer.addOptionGroup(*group);
    writer.addMasterTask(m_catalogue.finalTask);
    m_payments.payProgress(writer.tasks(), !job.open);
}

void JobWriter::writeExactLot(const JobFrame& job, int lotIndex) {
    const LotFrame lot = writeLot(job, lotIndex);
    const int count = (job.open ? m_shares.openTasks : m_shares.closedTasks).take();
    LotTaskWriter writer(m_tables, m_random, m_staff, lot, count + 1);
    // A parent and its option are two of the lot's tasks.
    const bool optioned = count >= 3 && m_random.chance(10);
    writer.addPlanTasks(optioned ? count - 2 : count);
    if (optioned)
        writer.addParent(*job.builder->groups.front().rows.front().master, 1,
                         job.builder->groups.front().name, 9500);
    m_payments.payExactly(writer.tasks(), m_shares.payments.take(count));
    // Comes last and is paid last: in an open job nobody has been paid for it.
    if (job.open)
        writer.addMasterTask(m_catalogue.finalTask);
}

} // namespace tarnwell::sample
