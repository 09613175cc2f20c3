#pragma once

#include "builders/BuilderData.h"
#include "builders/frmBuilder.h"
#include "controls/ListBox.h"
#include "support/DrivenScreen.h"

namespace tarnwell::test {

/// The builders screen over a small catalogue.
struct BuilderScreen : DrivenScreen<frmBuilder, BuilderData> {
    /// Finds the builder by typing; Framing is the second category.
    void openBuilder() {
        open();
        find([](const ScreenDriver& search) {
            search.type("Abel");
            search.press(Qt::Key_Return);
        });
        combo().setListIndex(1);
    }
    void find(std::function<void(const ScreenDriver&)> use) {
        whenShown(std::move(use));
        driver->clickToolbar("Find");
    }

    Grid& plans() { return grid("jgPlans"); }
    Grid& tasks() { return grid("jgTasks"); }
    int selectedJobs() { return static_cast<int>(driver->find<ListBox>("lstJobs").selectedItems().size()); }
    QString builderName() { return ask("SELECT Name FROM Contractor ORDER BY ContractorKey DESC").toText(); }
};

} // namespace tarnwell::test
