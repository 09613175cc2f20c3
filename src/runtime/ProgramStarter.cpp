#include "runtime/ProgramStarter.h"

#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"

#include <QEventLoop>
#include <QProcess>

#include <memory>
#include <utility>

namespace tarnwell {

namespace {

ProgramStarter& replacedStarter() {
    static ProgramStarter starter;
    return starter;
}

void startAndWait(const QString& program, const QStringList& arguments) {
    auto process = std::make_unique<QProcess>();
    QEventLoop loop;
    QObject::connect(process.get(), &QProcess::finished, &loop, &QEventLoop::quit);
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    process->start(program, arguments);
    if (program.isEmpty() || !process->waitForStarted())
        raise(Failure::FileNotFound, program);
    if (process->state() != QProcess::NotRunning)
        loop.exec();
    // When our own program ends first, the other one goes on: destroying the process object would kill it.
    if (process->state() != QProcess::NotRunning)
        static_cast<void>(process.release());
}

} // namespace

ProgramStarter setProgramStarter(ProgramStarter starter) {
    return std::exchange(replacedStarter(), std::move(starter));
}

void Shell(const QString& command) {
    QStringList words = QProcess::splitCommand(command);
    const QString program = words.isEmpty() ? QString() : words.takeFirst();
    if (replacedStarter())
        replacedStarter()(program, words);
    else if (program.isEmpty() || !QProcess::startDetached(program, words))
        raise(Failure::FileNotFound, program);
}

void ShellAndWait(const QString& program, const QStringList& arguments) {
    try {
        if (replacedStarter())
            replacedStarter()(program, arguments);
        else
            startAndWait(program, arguments);
    } catch (const RunTimeError& error) {
        if (error.is(Failure::FileNotFound))
            MsgBox({.text = QStringLiteral("No error log found!"),
                    .title = QStringLiteral("Notification"),
                    .icon = MessageIcon::Information});
        else
            ErrorHandler(error, {});
    }
}

} // namespace tarnwell
