#pragma once

#include "reports/ReportTest.h"

namespace tarnwell::test {

/// The test of a report on one job's lots, over all of its jobs.
class LotReportTest : public ReportTest {
protected:
    explicit LotReportTest(const Report& report) : m_report(report) {
        job = data.add(JobRow{.number = "24-100", .name = "North", .foreman = "Stone/Sid"});
        category = data.addCategory("Framing");
        ann = data.add(EmployeeRow{.lastName = "Adams", .firstName = "Ann"});
    }

    qint64 addLot(const char* lotBlock) {
        return data.add(LotRow{.job = job, .lotBlock = lotBlock, .plan = "Oak", .address = "1 Short St"});
    }
    qint64 addTask(qint64 lot, const char* name, double price) {
        return data.add(TaskRow{.lot = lot, .category = category, .name = name, .price = price});
    }
    void pay(qint64 task, double price, const char* date = "01/05/24") {
        data.add(PaymentRow{task, ann, price, on(date)});
    }
    /// The texts that begin so when the report is drawn.
    [[nodiscard]] QStringList drawn(const QString& start) {
        pages = {};
        draw(m_report, parameters);
        return pages.texts().filter(start);
    }

    qint64 job = 0;
    qint64 category = 0;
    qint64 ann = 0;
    ReportParameters parameters{.incomplete = false, .allJobsMarked = true};

private:
    const Report& m_report;
};

} // namespace tarnwell::test
