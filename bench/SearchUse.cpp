#include "bench/SearchUse.h"

#include "bench/KeyStroke.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "master/frmFastSearch.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include <functional>

namespace tarnwell::bench {

namespace {

/// Runs a routine once the search dialog is up, behind its own start.
void whenSearching(frmFastSearch& search, const std::function<void()>& routine) {
    auto* timer = new QTimer(&search);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, &search, routine] {
        if (!search.isActiveWindow())
            return;
        timer->stop();
        timer->deleteLater();
        routine();
    });
    timer->start(0);
}

} // namespace

double showFound(Screen& form, const QString& text, int line) {
    auto& search = theForm<frmFastSearch>();
    search.Load();
    auto* typed = search.findChild<MaskedBox*>("MskField(0)");
    auto* found = search.findChild<ListBox*>("lstItems");
    QElapsedTimer elapsed;
    whenSearching(search, [&] {
        typed->setText(text);
        strokeKey(*typed);
        found->setListIndex(line % found->ListCount());
        elapsed.start();
        search.findChild<QPushButton*>("cmdSelect")->click();
    });
    form.findChild<QToolButton*>("Find")->click();
    form.repaint();
    constexpr double second = 1e9;
    return static_cast<double>(elapsed.nsecsElapsed()) / second;
}

} // namespace tarnwell::bench
