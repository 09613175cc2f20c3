#pragma once

#include "controls/Combo.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "frame/Forms.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <optional>

namespace tarnwell::test {

/// The test of one screen over data of its own (whose database is `db`), driven by keys and clicks.
template <class Form, class Data>
struct DrivenScreen : ScreenTest {
    void SetUp() override { workOn(data.db); }

    static Form& form() { return theForm<Form>(); }
    void open() { driver.emplace(form()); }
    Grid& grid(const char* name) { return driver->find<Grid>(name); }
    MaskedBox& field(int index) { return driver->find<MaskedBox>(QString("MskField(%1)").arg(index)); }
    Combo& combo(const char* name = "cmbType") { return driver->find<Combo>(name); }
    QString enabled() { return driver->enabledButtons(); }
    /// Clicks a visible cell of a grid by its row and column from 1, the new-row line included.
    void clickCell(const char* name, int row, int column) {
        const Grid& of = grid(name);
        const QRect cell = of.visualRect(of.model()->index(row - 1, column - 1));
        driver->click(name, {cell.left() + 10, cell.center().y()});
    }
    Value ask(const QString& sql) { return data.db.ask(sql); }

    Data data;
    MessageScript script;
    std::optional<ScreenDriver> driver;
};

} // namespace tarnwell::test
