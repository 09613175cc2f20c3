#pragma once

#include "controls/ListBox.h"
#include "runtime/RunTime.h"
#include "support/DrivenScreen.h"
#include "timecard/TimeCardData.h"
#include "timecard/frmPayroll.h"

#include <QLabel>
#include <QLineEdit>

namespace tarnwell::test {

/// The time card on the last day of a year, with one more open job, a closed one and a second task.
struct Payroll : DrivenScreen<frmPayroll, TimeCardData> {
    void SetUp() override {
        DrivenScreen::SetUp();
        setClock([] { return DateTime{QDate(2024, 12, 31)}; });
        data.addJob("2002", "Oak Rise");
        data.addJob("1500", "Closed", DateTime{QDate(2024, 1, 1)});
        data.addTask("Beams", 40.0, data.framing);
    }
    void TearDown() override {
        ScreenTest::TearDown();
        setClock(nullptr);
    }
    /// Job 1001, its first lot, the category Framing and its first task, "Beams".
    void openJob() {
        open();
        driver->focus("MskField(2)");
        driver->type("1");
        combo().setListIndex(1);
    }
    Combo& employees() { return combo("cmbEmployees"); }
    void choose(const char* employee) {
        driver->focus("cmbEmployees");
        employees().lineEdit()->selectAll();
        driver->type(employee);
    }
    void apply() { driver->click("cmdApplyTask", {5, 5}); }

    QString text(const QString& name) { return driver->find<MaskedBox>(name).text(); }
    QString figure(const QString& name) { return driver->find<QLabel>(name).text(); }
    bool findEnabled() { return driver->enabledButtons().contains("Find"); }
    QStringList column(const char* name, int index) {
        QStringList texts;
        for (int row = 1; row <= grid(name).RowCount(); ++row)
            texts.append(grid(name).valueAt(row, index).toText());
        return texts;
    }
    QStringList lines(const QString& name) {
        QStringList texts;
        auto& list = driver->find<ListBox>(name);
        for (int i = 0; i < list.ListCount(); ++i)
            texts.append(list.item(i)->text());
        return texts;
    }
};

} // namespace tarnwell::test
