#pragma once

#include "ToolRun.h"

#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwell::test {

/// Catalogs of the test server that tarnwell-db makes, and files beside them. All are removed with this, and
/// the groups and users that belong to them.
class ServerCatalogs : public ::testing::Test {
protected:
    ServerCatalogs();
    ~ServerCatalogs() override;

    /// A name that no other test uses.
    [[nodiscard]] QString catalog(const char* name) const;
    /// "ann@" or nothing in front of the server.
    [[nodiscard]] QString address(const char* name, const char* user = "") const;
    [[nodiscard]] QString file(const char* name) const;
    /// Somebody who may sign in and nothing else.
    [[nodiscard]] QString newUser(const char* name) const;

    /// Runs tarnwell-db and expects that it succeeds.
    void run(const QStringList& arguments) const;
    /// What tarnwell-db complains of; it must fail with 1 and with one line.
    [[nodiscard]] std::string complaint(const QStringList& arguments) const;
    /// All rows of a catalog or a file.
    [[nodiscard]] QString rowsOf(const QString& database) const;
    /// A small sample in a file, with all that a value may be and with gaps between its keys.
    void makeStrangeFile(const char* name) const;

private:
    void dropAll() const;

    QTemporaryDir m_folder;
    QString m_prefix;
};

} // namespace tarnwell::test
