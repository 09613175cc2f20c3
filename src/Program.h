#pragma once

#include "frame/AltLetterFilter.h"
#include "frame/help/HelpKey.h"

#include <QApplication>

namespace tarnwell {

/// The whole program: its look, its keys, its messages and every screen. An error that no routine caught
/// reaches the outer handler and not the toolkit.
class Program : public QApplication {
public:
    Program(int& argc, char** argv);

    /// Shows the main window and runs until it is closed; returns the exit code.
    int run();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    AltLetterFilter m_altLetterFilter;
    HelpKey m_helpKey;
};

/// The program from its start to its end, the daily backup behind its last window included; returns the exit
/// code.
[[nodiscard]] int runProgram(int argc, char** argv);

} // namespace tarnwell
