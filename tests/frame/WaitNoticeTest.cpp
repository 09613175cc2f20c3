#include "frame/WaitNotice.h"

#include "support/ScreenDriver.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace tarnwell::test {

TEST(WaitNotice, AppearsAfterASecondAndGivesUpAtCancel) {
    using namespace std::chrono_literals;
    WaitNotice notice;
    EXPECT_TRUE(notice.goesOn(999ms));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(notice.goesOn(1s));
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(notice.goesOn(2s));
    QTest::mouseClick(box->button(QMessageBox::Cancel), Qt::LeftButton);
    EXPECT_FALSE(notice.goesOn(3s));
    notice.ended();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(notice.goesOn(1s)) << "the next wait is another one";
    notice.ended();
}

} // namespace tarnwell::test
