#include "data/backup/DatabaseTarget.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/file/DatabaseFile.h"
#include "data/file/FileReplacement.h"
#include "data/recordset/EngineFactory.h"

#include <QFileInfo>

namespace tarnwell {

namespace {

using data::FileReplacement;
using CatalogState = data::ServerCatalog::State;

/// A file in the making beside the name that was asked for, where an interrupted run leaves nothing.
class NewFile : public DatabaseTarget {
public:
    NewFile(const QString& path, ExistingFile existing)
        : m_existing(existing == ExistingFile::Replace ? FileReplacement::Existing::Replace
                                                       : FileReplacement::Existing::Keep),
          m_file(path) {
        createDatabase(m_file.temporaryPath());
    }
    [[nodiscard]] QString connectionString() const override {
        return fileConnectionString(m_file.temporaryPath());
    }
    void updateStatistics() override { tarnwell::updateStatistics(m_file.temporaryPath()); }
    void finish() override { m_file.moveIntoPlace(m_existing); }

private:
    FileReplacement::Existing m_existing;
    FileReplacement m_file;
};

class FileToFill : public DatabaseTarget {
public:
    explicit FileToFill(const QString& path) : m_path(path) {}
    [[nodiscard]] QString connectionString() const override { return fileConnectionString(m_path); }
    void updateStatistics() override { tarnwell::updateStatistics(m_path); }
    void finish() override {}

private:
    QString m_path;
};

class CatalogToFill : public DatabaseTarget {
public:
    explicit CatalogToFill(const DatabaseAddress& address)
        : m_connectionString(address.connectionString),
          m_catalog(data::openServerCatalog(address.connectionString)) {
        const CatalogState state = m_catalog->state();
        if (state == CatalogState::Foreign)
            refuse(QStringLiteral("%1 holds tables that are not Tarnwell's").arg(address.shown));
        m_isNew = state != CatalogState::Ours;
        if (m_isNew)
            m_catalog->create();
        m_isInTheMaking = state == CatalogState::Missing;
    }
    ~CatalogToFill() override {
        if (!m_isInTheMaking)
            return;
        try {
            m_catalog->drop();
        } catch (const RunTimeError&) {
            // It stays, and is as empty as it was made. What went wrong before is on its way to the user.
        }
    }
    CatalogToFill(const CatalogToFill&) = delete;
    CatalogToFill& operator=(const CatalogToFill&) = delete;
    [[nodiscard]] bool isNew() const { return m_isNew; }
    [[nodiscard]] QString connectionString() const override { return m_connectionString; }
    void updateStatistics() override { m_catalog->updateStatistics(); }
    void finish() override { m_isInTheMaking = false; }

private:
    QString m_connectionString;
    std::unique_ptr<data::ServerCatalog> m_catalog;
    bool m_isNew = false;
    bool m_isInTheMaking = false; ///< It was missing, and is to be missing again unless all goes well.
};

} // namespace

std::unique_ptr<DatabaseTarget> newTarget(const DatabaseAddress& address, ExistingFile existing) {
    if (address.isFile())
        return std::make_unique<NewFile>(address.path, existing);
    auto catalog = std::make_unique<CatalogToFill>(address);
    if (!catalog->isNew())
        refuse(QStringLiteral("%1 is a Tarnwell database already").arg(address.shown));
    return catalog;
}

std::unique_ptr<DatabaseTarget> targetToFill(const DatabaseAddress& address) {
    if (!address.isFile())
        return std::make_unique<CatalogToFill>(address);
    if (QFileInfo::exists(address.path))
        return std::make_unique<FileToFill>(address.path);
    return std::make_unique<NewFile>(address.path, ExistingFile::Keep);
}

void refuse(const QString& text) {
    throw RunTimeError(makeError(Failure::NotAllowed).number(), QStringLiteral("Tarnwell"), text,
                       Failure::NotAllowed);
}

} // namespace tarnwell
