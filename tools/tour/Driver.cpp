#include "tour/Driver.h"

#include "controls/grid/Grid.h"
#include "input/WidgetInput.h"
#include "tour/KeyClashes.h"
#include "tour/SmallPicture.h"
#include "tour/WindowKeeper.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <chrono>
#include <exception>
#include <memory>
#include <semaphore>

namespace tarnwell::tour {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 20s;
constexpr auto pause = 5ms; ///< Between two looks.

struct Task {
    std::function<void()> action;
    bool through = false;
    std::exception_ptr error = nullptr;
};

/// How far a task is when the program gets to what stands behind it in its queue.
struct Report {
    std::binary_semaphore reached{0};
    std::exception_ptr error = nullptr;
};

void run(Task& task) {
    try {
        task.action();
    } catch (const std::exception&) {
        task.error = std::current_exception();
    }
    task.through = true;
}

/// Puts the action into the program's queue, and behind it a sign that it has been reached: by then the
/// action is through, or it waits in a window of its own.
void runInProgram(const std::function<void()>& action) {
    const auto task = std::make_shared<Task>(Task{.action = action});
    const auto report = std::make_shared<Report>();
    QMetaObject::invokeMethod(
        qApp, [task] { run(*task); }, Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        qApp,
        [task, report] {
            if (task->through)
                report->error = task->error;
            report->reached.release();
        },
        Qt::QueuedConnection);
    if (!report->reached.try_acquire_for(patience))
        throw StepFailed(QStringLiteral("the program does not answer"));
    if (report->error != nullptr)
        std::rethrow_exception(report->error);
}

QWidget& front() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr)
        window = QApplication::activeWindow();
    if (window == nullptr)
        throw StepFailed(QStringLiteral("no window is in front"));
    return *window;
}

QWidget& keyTarget() {
    if (QWidget* popup = QApplication::activePopupWidget())
        return *popup;
    return input::keyTarget(front());
}

QString shownText(const QWidget& control) {
    if (const auto* field = qobject_cast<const QLineEdit*>(&control))
        return field->text();
    if (const auto* combo = qobject_cast<const QComboBox*>(&control))
        return combo->currentText();
    if (const auto* label = qobject_cast<const QLabel*>(&control))
        return label->text();
    if (const auto* list = qobject_cast<const QAbstractItemView*>(&control)) {
        QStringList lines;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            lines << list->model()->index(row, 0).data().toString();
        return lines.join(u'\n');
    }
    if (const auto* editor = control.findChild<QLineEdit*>())
        return editor->text();
    return {};
}

/// The column's place in the grid's model.
int columnOf(const Grid& grid, const QString& key) {
    const auto found = std::ranges::find(grid.columns(), key, &GridColumn::key);
    if (found == grid.columns().end())
        input::reportMissing(key);
    return static_cast<int>(found - grid.columns().begin());
}

/// What can't be looked at does not exist yet.
bool isThere(const std::function<bool()>& condition) {
    try {
        return condition();
    } catch (const std::runtime_error&) {
        return false;
    }
}

bool isSettled() {
    return QApplication::activePopupWidget() == nullptr && front().isActiveWindow();
}

constexpr int titleHeight = 26;
constexpr int frameWidth = 1;

/// A window with a frame like the ones that desktops draw.
void paintWindow(QPainter& painter, QWidget& window, QPoint origin) {
    const QRect place(window.mapToGlobal(QPoint()) - origin, window.size());
    const QRect title(place.left(), place.top() - titleHeight, place.width(), titleHeight);
    painter.fillRect(title, QColor(0x2b, 0x6d, 0x8c));
    painter.setPen(Qt::white);
    painter.drawText(title.adjusted(8, 0, -8, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                     window.windowTitle());
    painter.drawPixmap(place.topLeft(), window.grab());
    painter.setPen(QColor(0x2b, 0x6d, 0x8c));
    painter.drawRect(place.united(title).adjusted(-1, -1, 0, 0));
}

/// The window alone, in its frame.
QImage framedImage(QWidget& window) {
    const QSize framed = window.size() + QSize(2 * frameWidth, titleHeight + 2 * frameWidth);
    QImage image(framed * window.devicePixelRatio(), QImage::Format_RGB32);
    image.setDevicePixelRatio(window.devicePixelRatio());
    QPainter painter(&image);
    paintWindow(painter, window, window.mapToGlobal(QPoint(-frameWidth, -titleHeight - frameWidth)));
    return image;
}

/// The windows where they stand on the desktop.
QImage desktopImage(const QList<QWindow*>& fromTheBack) {
    const QRect screen = front().screen()->geometry();
    QImage image(screen.size() + QSize(0, titleHeight), QImage::Format_RGB32);
    image.fill(QColor(0x3b, 0x4a, 0x54));
    QPainter painter(&image);
    for (const QWindow* handle : fromTheBack)
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->windowHandle() == handle)
                paintWindow(painter, *window, screen.topLeft() - QPoint(0, titleHeight));
    return image;
}

} // namespace

Driver::Driver(const WindowKeeper& windows, QString folder, const QString& database)
    : m_windows(windows), m_folder(std::move(folder)),
      m_database(database, data::SqliteDatabase::Access::ReadOnly) {}

void Driver::look(const std::function<void()>& action) {
    runInProgram(action);
}

void Driver::act(const std::function<void()>& action) {
    see(QStringLiteral("a window to work in"), [] {
        return QApplication::activePopupWidget() != nullptr || QApplication::activeWindow() != nullptr;
    });
    runInProgram(action);
}

QWidget& Driver::control(const QString& name) {
    return input::find(front(), name);
}

template <class Value>
Value Driver::fetch(const std::function<Value()>& question) {
    const auto answer = std::make_shared<Value>();
    act([answer, question] { *answer = question(); });
    return std::move(*answer);
}

void Driver::see(const QString& what, const std::function<bool()>& condition) {
    std::binary_semaphore never(0);
    QElapsedTimer waiting;
    waiting.start();
    do {
        const auto seen = std::make_shared<bool>(false);
        look([seen, condition] { *seen = isThere(condition); });
        if (*seen)
            return;
        static_cast<void>(never.try_acquire_for(pause));
    } while (std::chrono::milliseconds(waiting.elapsed()) < patience);
    throw StepFailed(what + QStringLiteral(" did not come"));
}

void Driver::seeWindow(const QString& name) {
    see(name, [name] {
        const QWidget* window = QApplication::activeWindow();
        return window != nullptr && window->objectName() == name && &front() == window && isSettled();
    });
}

void Driver::answer(const QString& text, const QKeySequence& key) {
    const auto shown = std::make_shared<QString>();
    try {
        see(QStringLiteral("the message \"%1\"").arg(text), [text, shown] {
            const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            *shown = box != nullptr ? box->text() : QString();
            return box != nullptr && box->isActiveWindow() && box->text().contains(text);
        });
    } catch (const StepFailed& failure) {
        throw shown->isEmpty() ? failure
                               : StepFailed(QString::fromUtf8(failure.what()) +
                                            QStringLiteral("; shown was \"%1\"").arg(*shown));
    }
    press(key);
    see(QStringLiteral("the end of the message"), [shown] {
        const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        return box == nullptr || box->text() != *shown;
    });
}

void Driver::seeText(const QString& name, const QString& text) {
    const auto shown = std::make_shared<QString>();
    try {
        see({}, [=] {
            *shown = shownText(control(name));
            return shown->contains(text);
        });
    } catch (const StepFailed&) {
        throw StepFailed(QStringLiteral("%1 shows \"%2\", not \"%3\"").arg(name, *shown, text));
    }
}

QString Driver::textOf(const QString& name) {
    return fetch<QString>([name] { return shownText(control(name)); });
}

int Driver::rowOf(const QString& grid, const QString& column, const QString& text) {
    const int found = fetch<int>([=] {
        const auto& table = input::find<Grid>(front(), grid);
        const int at = columnOf(table, column);
        for (int row = 0; row < table.model()->rowCount(); ++row)
            if (table.model()->index(row, at).data().toString() == text)
                return row;
        return -1;
    });
    if (found < 0)
        throw StepFailed(QStringLiteral("%1 does not show \"%2\"").arg(grid, text));
    return found;
}

void Driver::press(const QKeySequence& keys) {
    for (int i = 0; i < keys.count(); ++i)
        act([key = keys[static_cast<uint>(i)]] {
            QTest::keyClick(&keyTarget(), key.key(), key.keyboardModifiers());
        });
}

void Driver::type(const QString& text) {
    for (const QChar character : text)
        act([character] { QTest::keyClick(&keyTarget(), character.toLatin1()); });
}

void Driver::fill(const QString& name, const QString& text) {
    click(name);
    press(QKeySequence(QStringLiteral("Ctrl+A")));
    type(text);
}

void Driver::click(const QString& name, QPoint at) {
    act([=] { input::click(control(name), at); });
}

void Driver::clickLine(const QString& list, int row) {
    act([=] { input::clickLine(control(list), row); });
}

void Driver::doubleClickLine(const QString& list, int row) {
    clickLine(list, row);
    act([=] {
        auto& view = input::find<QAbstractItemView>(front(), list);
        input::doubleClick(view, view.visualRect(view.model()->index(row, 0)).center());
    });
}

void Driver::clickToolbar(const QString& caption) {
    act([=] { input::click(input::toolbarButton(front(), caption)); });
}

void Driver::clickCell(const QString& grid, int row, const QString& column) {
    act([=] {
        auto& table = input::find<Grid>(front(), grid);
        const QModelIndex cell = table.model()->index(row, columnOf(table, column));
        table.scrollTo(cell);
        input::click(table, table.visualRect(cell).center());
    });
}

void Driver::choose(const QString& name, const QString& text) {
    act([=] { input::openList(input::find<QComboBox>(front(), name)); });
    see(QStringLiteral("the list of ") + name,
        [name] { return input::find<QComboBox>(front(), name).view()->isVisible(); });
    act([=] { input::clickEntry(input::find<QComboBox>(front(), name), text); });
}

void Driver::resizeFront(QSize size) {
    act([size] { front().resize(size); });
}

void Driver::picture(const QString& name) {
    save(fetch<QImage>([windows = &m_windows] { return desktopImage(windows->fromTheBack()); }), name);
}

void Driver::windowPicture(const QString& name) {
    const QStringList clashes = fetch<QStringList>([] { return keyClashes(front()); });
    if (!clashes.isEmpty())
        throw StepFailed(QStringLiteral("in %1, %2").arg(name, clashes.join(QStringLiteral("; "))));
    save(smallPicture(fetch<QImage>([] { return framedImage(front()); })), name);
}

void Driver::controlPicture(const QString& name, const QString& picture) {
    save(smallPicture(fetch<QImage>([name] { return control(name).grab().toImage(); })), picture);
}

void Driver::save(const QImage& image, const QString& name) const {
    const QString path = QDir(m_folder).filePath(name + QStringLiteral(".png"));
    constexpr int smallest = 0; // PNG's "quality" only trades time for size.
    if (!image.save(path, nullptr, smallest))
        throw StepFailed(QStringLiteral("the picture %1 can't be saved").arg(path));
}

QStringList Driver::firstRow(const QByteArray& sql, int columns) const {
    data::SqliteStatement statement = m_database.prepare(sql);
    QStringList row;
    if (statement.step())
        for (int column = 0; column < columns; ++column)
            row << statement.textAt(column);
    return row;
}

void Driver::seeStored(const QByteArray& sql, const QString& value) const {
    const QString stored = ask(sql);
    if (stored != value)
        throw StepFailed(
            QStringLiteral("stored is \"%1\", not \"%2\": %3").arg(stored, value, QString::fromUtf8(sql)));
}

} // namespace tarnwell::tour
