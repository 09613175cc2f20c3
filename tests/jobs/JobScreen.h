#pragma once

#include "jobs/LotData.h"
#include "jobs/frmJobs.h"
#include "support/DrivenScreen.h"

namespace tarnwell::test {

/// The jobs screen, shown, on a job with the lots A and B.
struct JobScreen : DrivenScreen<frmJobs, LotData> {
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
    /// Answers the question that Del asks.
    void del(Answer answer = Answer::Yes) {
        script.expect(answer);
        driver->clickToolbar("Del");
    }

    Grid& lots() { return grid("jgJobLots"); }
    Grid& tasks() { return grid("jgTasks"); }
    static QString cell(const Grid& grid, int row, int column) {
        return grid.model()->index(row - 1, column - 1).data().toString();
    }
    QString stored(const char* column) { return ask(QString("SELECT %1 FROM Job").arg(column)).toText(); }

    qint64 lotB = data.addLot("B");
};

} // namespace tarnwell::test
