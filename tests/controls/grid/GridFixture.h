#pragma once

#include "controls/grid/Grid.h"
#include "data/recordset/Recordset.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/TemporaryDatabase.h"

#include <QApplication>
#include <QLineEdit>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tarnwell::test {

/// Columns of the grid below.
enum Column { Key = 1, Lot, Category, Button, Name, Price, Custom, Exclude, Start, Employee };

/// A grid of a lot's tasks between two fields, in a shown window, over a database with three tasks: "Brick",
/// "Frame" and "Paint" at 10, 20 and 30. Events are noted as they come.
class GridTest : public ::testing::Test {
protected:
    GridTest();

    void open(const QString& where = QStringLiteral("1=1"));
    /// Binds with all allowed, the focus in the grid.
    void start(NewRowPosition position = NewRowPosition::Last);
    void clickCell(int row, int column);
    /// Where a cell is drawn; rows count from 1 on screen, the new-row line included.
    [[nodiscard]] QRect cell(int row, int column) const;
    [[nodiscard]] QString shown(int row, int column) const;
    [[nodiscard]] QString stored(const QString& column, qint64 key);
    [[nodiscard]] QStringList takeLog() { return std::exchange(log, {}); }
    [[nodiscard]] QLineEdit* editor() const { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }

    TemporaryDatabase database;
    qint64 lot = 0;
    std::vector<qint64> keys;
    Recordset rows;
    QWidget window;
    QLineEdit* before;
    Grid* grid;
    QLineEdit* after;
    std::unique_ptr<ScreenDriver> driver;
    QStringList log;
};

} // namespace tarnwell::test
