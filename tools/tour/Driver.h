#pragma once

#include "data/sqlite/SqliteDatabase.h"

#include <QKeySequence>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <stdexcept>

namespace tarnwell::tour {

class WindowKeeper;

/// The program showed something else than it should.
class StepFailed : public std::runtime_error {
public:
    explicit StepFailed(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// Drives the running program from a thread beside it, as a person does: looks, waits, presses keys and
/// clicks.
///
/// A step may open a message or a modal window: the program then waits in it, and the driver goes on.
/// Everything that looks waits a while for what it should see and throws StepFailed when it does not come.
class Driver {
public:
    /// Pictures go into `folder`, which exists. `database` is the file that the program has open.
    Driver(const WindowKeeper& windows, QString folder, const QString& database);

    [[nodiscard]] const QString& folder() const { return m_folder; }

    // What is seen.
    /// Waits until the form or dialog of that name is in front.
    void seeWindow(const QString& name);
    /// Waits for a message with that text (a part of it) and closes it with a key of its own.
    void answer(const QString& text, const QKeySequence& key);
    void see(const QString& what, const std::function<bool()>& condition);
    /// Waits until a field, list line or label of the window in front shows the text.
    void seeText(const QString& control, const QString& text);
    [[nodiscard]] QString textOf(const QString& control);
    /// The grid's line, from 0, that shows the text in the column; throws StepFailed when there is none.
    [[nodiscard]] int rowOf(const QString& grid, const QString& column, const QString& text);

    // What is done, in the window in front.
    void press(const QKeySequence& keys);
    void type(const QString& text);
    /// Types into a field in the place of what it shows.
    void fill(const QString& control, const QString& text);
    void click(const QString& control, QPoint at = {});
    void doubleClickLine(const QString& list, int row);
    void clickLine(const QString& list, int row);
    void clickToolbar(const QString& caption);
    /// A cell by its row, from 0, and its column's key.
    void clickCell(const QString& grid, int row, const QString& column);
    void choose(const QString& combo, const QString& text);
    void resizeFront(QSize size);

    /// Saves what stands on the desktop, the window in front above the others, as `name`.png.
    void picture(const QString& name);
    /// Saves the window in front alone, in its frame and in few colours. Throws StepFailed when one key calls
    /// two of its controls.
    void windowPicture(const QString& name);
    /// Saves a control of it alone, in few colours.
    void controlPicture(const QString& control, const QString& name);

    /// The first row of a statement in SQLite's own words, asked beside the program; empty when there is
    /// none.
    [[nodiscard]] QStringList firstRow(const QByteArray& sql, int columns) const;
    [[nodiscard]] QString ask(const QByteArray& sql) const { return firstRow(sql, 1).value(0); }
    /// Throws StepFailed when the statement's first value is another.
    void seeStored(const QByteArray& sql, const QString& value) const;

    /// Runs in the program's thread once a window is in front; returns when it is through or waits in a
    /// window that it opened. What it throws by then comes back here. It may run on when this has given up:
    /// it must refer to nothing of the caller's, and so must every condition.
    void act(const std::function<void()>& action);
    /// The control of the window in front; only inside `act` or `see`.
    [[nodiscard]] static QWidget& control(const QString& name);

private:
    void look(const std::function<void()>& action);
    /// What the question answers, asked as `act` acts.
    template <class Value>
    [[nodiscard]] Value fetch(const std::function<Value()>& question);
    void save(const QImage& image, const QString& name) const;

    const WindowKeeper& m_windows;
    QString m_folder;
    data::SqliteDatabase m_database;
};

} // namespace tarnwell::tour
