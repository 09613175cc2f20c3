#include "support/ModalWindows.h"

#include "frame/Screen.h"
#include "support/ScreenDriver.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace tarnwell::test {

namespace {

/// Times in a row that the event loop would sleep before a modal window counts as forgotten: a window that
/// opens or closes needs some of them. They are counted, not timed, so a slow machine changes nothing.
constexpr int idleTurns = 200;

/// Waits for modal windows on behalf of the tests, and sees to it that none is left open.
class ModalWatch {
public:
    ModalWatch() {
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, qApp,
                         [this] { countIdleTurn(); });
    }

    void expect(const std::function<void(QWidget&)>& routine) {
        // One for each: a timer does not fire again inside a window that its own routine opens.
        auto* timer = new QTimer(qApp);
        m_waiting.push_back(timer);
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, routine] {
            QWidget* modal = QApplication::activeModalWidget();
            if (modal == nullptr || !modal->isActiveWindow())
                return;
            timer->stop();
            timer->deleteLater();
            std::erase(m_waiting, timer);
            drive(*modal, routine);
        });
        timer->start(1);
    }

    /// Says what was expected in vain, and starts anew.
    void finishTest() {
        if (!m_waiting.empty())
            ADD_FAILURE() << "the modal window that the test waits for was never opened";
        qDeleteAll(m_waiting);
        m_waiting.clear();
        m_idleTurns = 0;
    }

private:
    void drive(QWidget& modal, const std::function<void(QWidget&)>& routine) {
        const QPointer<QWidget> outer = std::exchange(m_driven, &modal);
        bool isBroken = false;
        try {
            routine(modal);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
            isBroken = true;
        }
        m_driven = outer;
        if (isBroken || testing::Test::HasFatalFailure())
            closeModalWindows();
    }

    /// Only a loop that waits for events comes here, so what a routine does or a report draws is never idle.
    void countIdleTurn() {
        const QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || modal == m_driven) {
            m_idleTurns = 0;
            return;
        }
        QTimer::singleShot(1, qApp, [] {}); // wakes the loop for its next turn
        if (++m_idleTurns < idleTurns)
            return;
        m_idleTurns = 0;
        ADD_FAILURE() << "nobody uses the modal window \"" << modal->windowTitle().toStdString() << '"';
        closeModalWindows();
    }

    static void closeModalWindows() {
        while (QWidget* modal = QApplication::activeModalWidget()) {
            close(*modal);
            if (modal == QApplication::activeModalWidget()) {
                ADD_FAILURE() << "it can't be closed either";
                std::fflush(nullptr);
                std::_Exit(EXIT_FAILURE);
            }
        }
    }

    static void close(QWidget& window) {
        try {
            if (auto* screen = qobject_cast<Screen*>(&window))
                screen->Unload();
            else if (auto* dialog = qobject_cast<QDialog*>(&window))
                dialog->reject();
            else
                window.close();
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
    }

    std::vector<QTimer*> m_waiting; ///< Each for a modal window.
    QPointer<QWidget> m_driven;     ///< The window that the innermost routine was called for.
    int m_idleTurns = 0;
};

ModalWatch* watch = nullptr;

class EndOfTest : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo& /*test*/) override { watch->finishTest(); }
};

} // namespace

void whenModal(const std::function<void(QWidget&)>& routine) {
    watch->expect(routine);
}

void whenShown(std::function<void(const ScreenDriver&)> use) {
    whenModal([use = std::move(use)](QWidget& window) { use(ScreenDriver(window)); });
}

void watchModalWindows() {
    static ModalWatch theWatch;
    watch = &theWatch;
    testing::UnitTest::GetInstance()->listeners().Append(new EndOfTest);
}

} // namespace tarnwell::test
