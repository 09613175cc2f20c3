#pragma once

#include "reports/drawing/ReportTest.h"

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
    /// Adds a completed job of another foreman, to which the next lots belong; returns the job before.
    qint64 addOtherJob() {
        return std::exchange(
            job, data.add(JobRow{.number = "24-200", .foreman = "Own/Ed", .completed = on("02/20/24")}));
    }
    void pay(qint64 task, double price, const char* date = "01/05/24") {
        data.add(PaymentRow{task, ann, price, on(date)});
    }
    /// The texts that contain `start` when the report is drawn.
    [[nodiscard]] QStringList drawn(const QString& start) {
        return ReportTest::drawn(m_report, parameters, start);
    }
    void draw() { ReportTest::draw(m_report, parameters); }
    struct Variant {
        const char* name; ///< Of the approved pages.
        DetailLevel detail;
        bool summary;
    };
    /// Draws each variant; every lot counts as a step, also one that is left out.
    void expectApprovedPages(std::initializer_list<Variant> variants, int steps) {
        for (const Variant& variant : variants) {
            parameters.detail = variant.detail;
            parameters.summary = variant.summary;
            draw();
            expectApproved(pages, variant.name);
            EXPECT_EQ(watcher.steps, steps) << variant.name;
        }
    }

    qint64 job = 0;
    qint64 category = 0;
    qint64 ann = 0;
    ReportParameters parameters{.incomplete = false, .allJobsMarked = true};

private:
    const Report& m_report;
};

} // namespace tarnwell::test
