#pragma once

#include "CatalogueData.h"
#include "controls/Combo.h"
#include "controls/Grid.h"
#include "frame/Forms.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <QLineEdit>

#include <gtest/gtest.h>
#include <optional>

namespace tarnwell::test {

/// A screen over a catalogue, driven by keys and clicks.
template <class Form>
struct MasterScreenTest : ScreenTest {
    void SetUp() override { workOn(data.db); }
    void open() { driver.emplace(theForm<Form>()); }
    Grid& grid(const char* name) { return driver->find<Grid>(name); }
    Combo& category() { return driver->find<Combo>("cmbType"); }
    void typeCategory(const char* text) {
        driver->focus("cmbType");
        category().lineEdit()->selectAll();
        driver->type(text);
    }
    /// The middle of a cell; model rows count from 0, the new-row line included.
    void clickCell(const char* name, int modelRow, int column) {
        Grid& of = grid(name);
        driver->click(name, of.visualRect(of.model()->index(modelRow, column - 1)).center());
    }
    Value ask(const QString& sql) { return data.db.ask(sql); }

    CatalogueData data;
    MessageScript script;
    std::optional<ScreenDriver> driver;
};

} // namespace tarnwell::test
