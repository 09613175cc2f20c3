#include "timecard/TaskHistory.h"

#include "timecard/TimeCardData.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class TaskHistory : public ::testing::Test {
protected:
    double read(const Value& price = 100.0) { return readOf(data.task, price); }
    double readOf(const Value& task, const Value& price) {
        lines.clear();
        keys.clear();
        return readTaskHistory(data.db.connection(), task, price, figures,
                               [this](const QString& text, qint64 key) {
                                   lines.append(text);
                                   keys.push_back(key);
                               });
    }

    TimeCardData data;
    PaymentFigures figures;
    QStringList lines;
    std::vector<qint64> keys;
};

} // namespace

TEST_F(TaskHistory, EachPaymentGivesTwoLinesNewestFirst) {
    const qint64 older = data.addPayment(data.task, data.ann, 40, {2024, 3, 5});
    const qint64 newer = data.addPayment(data.task, data.bob, 12.345, {2024, 12, 31});
    EXPECT_EQ(read(), 100 - 40 - 12.345);
    EXPECT_EQ(lines, (QStringList{"12/31/24 | 222-22-2222 | 12.35", "Baker,Bob",
                                  "03/05/24 | 111-11-1111 | 40.00", "Archer,Ann"}));
    EXPECT_EQ(keys, (std::vector<qint64>{newer, newer, older, older}));
    EXPECT_EQ(figures.TotalPaid, 52.345);
}

TEST_F(TaskHistory, WhatIsLeftIsNeverBelowZeroButTheDifferenceIs) {
    data.addPayment(data.task, data.ann, 105);
    EXPECT_EQ(read(), 0);
    EXPECT_EQ(figures.TaskDifference, -5);
    EXPECT_EQ(figureText(figures.TaskDifference), "-5.00");
}

TEST_F(TaskHistory, TheDifferenceStaysWithoutAPriceOrATask) {
    figures.TaskDifference = 33;
    data.addPayment(data.task, data.ann, 40);
    EXPECT_EQ(read(Value::null()), 0);
    EXPECT_EQ(figures.TotalPaid, 40);
    EXPECT_EQ(figures.TaskDifference, 33);
    EXPECT_EQ(readOf(Value(), Value()), 0);
    EXPECT_EQ(figures.TotalPaid, 0);
    EXPECT_EQ(figures.TaskDifference, 33);
    EXPECT_TRUE(lines.isEmpty());
}

TEST_F(TaskHistory, ATotalBeyondADoubleIsAnOverflow) {
    data.addPayment(data.task, data.ann, 1.5e308);
    data.addPayment(data.task, data.bob, 1.5e308);
    EXPECT_THROW(read(), RunTimeError);
    EXPECT_EQ(figures.TotalPaid, 1.5e308);
}

TEST_F(TaskHistory, PricesAndFiguresHaveTheirFormats) {
    EXPECT_EQ(priceText(0), "0.00");
    EXPECT_EQ(priceText(10.005), "10.01");
    EXPECT_EQ(figureText(0), ".00");
    EXPECT_EQ(figureText(1234.5), "1234.50");
    EXPECT_EQ(remainingPrice(100.0, 130), 0);
    EXPECT_EQ(remainingPrice(100.0, 30), 70);
    EXPECT_THROW(static_cast<void>(remainingPrice(Value::null(), 30)), RunTimeError);
}
