#include "frame/WaitNotice.h"

#include "runtime/EventGuard.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace tarnwell {

namespace {

using namespace std::chrono_literals;

constexpr auto untilShown = 1s;

} // namespace

WaitNotice::~WaitNotice() {
    delete m_box.data();
}

bool WaitNotice::goesOn(std::chrono::milliseconds waited) {
    if (waited >= untilShown && m_box == nullptr && !m_cancelled)
        show();
    // Until the box stands, what is typed is kept for the window that it was meant for.
    QCoreApplication::processEvents(m_box != nullptr ? QEventLoop::AllEvents
                                                     : QEventLoop::ExcludeUserInputEvents);
    return !m_cancelled;
}

void WaitNotice::show() {
    m_box = new QMessageBox(QApplication::activeWindow());
    m_box->setObjectName(QStringLiteral("waitNotice"));
    m_box->setWindowTitle(QCoreApplication::applicationName());
    m_box->setIcon(QMessageBox::Information);
    m_box->setText(
        QStringLiteral("Another user is writing at this moment. What you did goes on as soon as he "
                       "is done."));
    m_box->addButton(QMessageBox::Cancel)->setText(QStringLiteral("Cancel"));
    QObject::connect(m_box, &QMessageBox::finished, m_box, guarded([this] { m_cancelled = true; }));
    m_box->setModal(true);
    m_box->show();
}

void WaitNotice::ended() noexcept {
    m_cancelled = false;
    if (m_box == nullptr)
        return;
    m_box->disconnect();
    delete m_box.data();
}

} // namespace tarnwell
