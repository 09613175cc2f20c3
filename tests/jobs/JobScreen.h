#pragma once

#include "controls/Combo.h"
#include "controls/Grid.h"
#include "controls/MaskedBox.h"
#include "jobs/LotData.h"
#include "jobs/frmJobs.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <gtest/gtest.h>
#include <optional>

namespace tarnwell::test {

/// The jobs screen, shown, on a job with the lots A and B.
class JobScreen : public ScreenTest {
protected:
    void SetUp() override { workOn(data.db); }

    frmJobs& form() { return theForm<frmJobs>(); }
    void open() {
        form().Show(Screen::Modality::Modeless, nullptr);
        driver.emplace(form());
    }
    /// Finds the job by typing; Framing is the second category.
    void openJob() {
        open();
        find("optSearch(0)");
        combo().setListIndex(1);
    }
    void find(const char* option) {
        whenShown([option](const ScreenDriver& search) {
            search.click(option);
            search.focus("MskField(0)");
            search.type("J-1");
            search.press(Qt::Key_Return);
        });
        driver->clickToolbar("Find");
    }
    /// In place of what stands in the control.
    void retype(const char* control, const QString& text) {
        driver->focus(control);
        driver->press(Qt::Key_A, Qt::ControlModifier);
        driver->press(Qt::Key_Delete);
        driver->type(text);
    }
    /// Clicks a visible cell of a grid by its row and column from 1.
    void clickCell(const char* grid, int row, int column) {
        const auto& view = driver->find<Grid>(grid);
        const QRect cell = view.visualRect(view.model()->index(row - 1, column - 1));
        driver->click(grid, {cell.left() + 10, cell.center().y()});
    }
    /// Answers yes, or what is told, to the question that Del asks.
    void del(Answer answer = Answer::Yes) {
        script.expect(answer);
        driver->clickToolbar("Del");
    }

    MaskedBox& field(int index) { return driver->find<MaskedBox>(QString("MskField(%1)").arg(index)); }
    Grid& lots() { return driver->find<Grid>("jgJobLots"); }
    Grid& tasks() { return driver->find<Grid>("jgTasks"); }
    Combo& combo() { return driver->find<Combo>("cmbType"); }
    QString cell(const Grid& grid, int row, int column) {
        return grid.model()->index(row - 1, column - 1).data().toString();
    }
    QString enabled() { return driver->enabledButtons(); }
    QString stored(const char* column) {
        return data.db.ask(QString("SELECT %1 FROM Job").arg(column)).toText();
    }

    LotData data;
    qint64 lotB = data.addLot("B");
    MessageScript script;
    std::optional<ScreenDriver> driver;
};

} // namespace tarnwell::test
