#pragma once

#include "sample/SampleBuilders.h"
#include "sample/SamplePayments.h"
#include "sample/SampleStaff.h"

#include <functional>
#include <map>

namespace tarnwell::sample {

struct JobFrame {
    qint64 key = 0;
    const Builder* builder = nullptr;
    QString name;
    QDate start;
    bool open = true;
};

/// Adds jobs with their lots, tasks and payments, oldest first, as years of work would leave them.
class JobWriter {
public:
    JobWriter(SampleTables& tables, SampleRandom& random, const Scale& scale, const Catalogue& catalogue,
              const std::vector<Builder>& builders, const Staff& staff);

    /// `progress` gets the number of jobs written so far.
    void writeAll(const std::function<void(int)>& progress);

private:
    /// What of the exact totals is still to be dealt out.
    struct Shares {
        Quota openLots, closedTasks, openTasks, payments;
    };

    JobFrame writeJob(const QString& number, const QString& name, QDate start, bool open, int index);
    void writeRegularJob(int index, int jobs);
    [[nodiscard]] QString nextNumber(QDate start);
    [[nodiscard]] LotFrame writeLot(const JobFrame& job, int lotIndex, bool withPlan = true);

    void writeBelievableLot(const JobFrame& job, int lotIndex, int jobIndex);
    void writeExactLot(const JobFrame& job, int lotIndex);

    void writeLandmarks();
    void writeBigJob();
    void writeBigLot();
    void writeOptionLot();
    [[nodiscard]] JobFrame writeLandmarkJob(const Landmark& mark);
    [[nodiscard]] Shares sharesLeft() const;

    SampleTables& m_tables;
    SampleRandom& m_random;
    const Scale& m_scale;
    const Catalogue& m_catalogue;
    const std::vector<Builder>& m_builders;
    const Staff& m_staff;
    PaymentWriter m_payments;
    Shares m_shares{{0, 0}, {0, 0}, {0, 0}, {0, 0}};
    std::map<int, int> m_lastNumber; ///< By year.
    int m_lots = 0;
};

} // namespace tarnwell::sample
