#pragma once

#include <QWidget>

#include <functional>

namespace tarnwell::test {

class ScreenDriver;

/// Runs a routine once the next modal window is up and active (before a call that blocks in it). A routine
/// that fails fatally or throws has its windows closed at once.
void whenModal(const std::function<void(QWidget& window)>& routine);
/// The same, with a driver for that window.
void whenShown(std::function<void(const ScreenDriver& window)> use);

/// From here on no test waits for its time limit behind a modal window: one that nobody drives, or that never
/// becomes active, fails the test and is closed as soon as the program has nothing else to do; where it can't
/// be closed the process ends. A routine of `whenModal` that never ran fails its test. The application lives.
void watchModalWindows();

} // namespace tarnwell::test
