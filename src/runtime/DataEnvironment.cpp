#include "runtime/DataEnvironment.h"

#include "runtime/MousePointer.h"
#include "runtime/modGlobalVariables.h"

#include <cstdio>
#include <memory>

namespace tarnwell {

namespace {

std::unique_ptr<Connection>& shared() {
    static std::unique_ptr<Connection> connection;
    return connection;
}

WaitWatcher* waitWatcher = nullptr;

bool& openedOnce() {
    static bool opened = false;
    return opened;
}

std::unique_ptr<Connection> openConnection() {
    const HourGlass hourGlass;
    auto connection = std::make_unique<Connection>();
    connection->setConnectionString(gConnectionString);
    connection->setWaitWatcher(waitWatcher);
    if (connection->State() == ObjectState::Closed)
        connection->Open();
    openedOnce() = true;
    return connection;
}

} // namespace

Connection& DataEnvironment::cnnConnection() {
    // A failed open leaves nothing behind, so that the next reference tries again.
    if (!shared())
        shared() = openConnection();
    return *shared();
}

void DataEnvironment::setWaitWatcher(WaitWatcher* watcher) {
    waitWatcher = watcher;
    if (shared())
        shared()->setWaitWatcher(watcher);
}

bool DataEnvironment::isOpen() {
    return shared() != nullptr;
}

bool DataEnvironment::wasOpened() {
    return openedOnce();
}

void DataEnvironment::close() noexcept {
    const std::unique_ptr<Connection> connection = std::move(shared());
    if (!connection)
        return;
    try {
        connection->Close();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The database could not be closed: %s\n", error.what());
    }
}

} // namespace tarnwell
