#pragma once

#include "builders/BuilderData.h"
#include "builders/frmBuilder.h"
#include "controls/Combo.h"
#include "controls/Grid.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <gtest/gtest.h>
#include <optional>

namespace tarnwell::test {

/// The builders screen over a small catalogue, driven by keys and clicks.
class BuilderScreen : public ScreenTest {
protected:
    void SetUp() override { workOn(data.db); }

    frmBuilder& form() { return theForm<frmBuilder>(); }
    void open() {
        form().Show(Screen::Modality::Modeless, nullptr);
        driver.emplace(form());
    }
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
    void pick(std::function<void(const ScreenDriver&)> use) { whenShown(std::move(use)); }

    MaskedBox& field(int index) { return driver->find<MaskedBox>(QString("MskField(%1)").arg(index)); }
    Grid& plans() { return driver->find<Grid>("jgPlans"); }
    Grid& tasks() { return driver->find<Grid>("jgTasks"); }
    Combo& combo() { return driver->find<Combo>("cmbType"); }
    QString enabled() { return driver->enabledButtons(); }
    int selectedJobs() { return static_cast<int>(driver->find<ListBox>("lstJobs").selectedItems().size()); }
    QString builderName() {
        return data.db.ask("SELECT Name FROM Contractor ORDER BY ContractorKey DESC").toText();
    }

    BuilderData data;
    MessageScript script;
    std::optional<ScreenDriver> driver;
};

} // namespace tarnwell::test
