#include "data/engine/Engine.h"

#include <utility>

namespace tarnwell::data {

int Engine::execute(const Translation& translation) {
    completeReaders();
    requireTransactionWhole();
    return execute(translation.shape->sql, translation.parameters);
}

void Engine::removeReader(const PendingReader& reader) {
    std::erase(m_readers, &reader);
}

void Engine::completeReaders() {
    requireOutsideWatch();
    const std::vector<PendingReader*> readers = m_readers;
    for (PendingReader* reader : readers)
        reader->completeRead();
}

void Engine::abandonReaders() {
    for (PendingReader* reader : std::exchange(m_readers, {}))
        reader->abandon();
}

WriteScope::WriteScope(Engine& engine) : m_engine(engine), m_own(!engine.inTransaction()) {
    if (m_own) {
        m_engine.begin();
    } else {
        m_engine.requireTransactionWhole();
        m_engine.completeReaders();
    }
}

WriteScope::~WriteScope() {
    if (m_own)
        m_engine.abandonTransaction();
}

void WriteScope::commit() {
    if (m_own)
        m_engine.commit();
    m_own = false;
}

} // namespace tarnwell::data
