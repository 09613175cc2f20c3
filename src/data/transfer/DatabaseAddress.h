#pragma once

#include <QString>

#include <variant>

namespace tarnwell {

/// A database as a command line names it: a file by its path, or a catalog on a server by an address.
struct DatabaseAddress {
    QString shown;            ///< To be shown: as it was typed, but for a password.
    QString path;             ///< Of a file; empty for a catalog.
    QString connectionString; ///< What opens it. May hold a password: not to be shown.

    [[nodiscard]] bool isFile() const { return !path.isEmpty(); }
};

/// Why a text is no address. Quotes nothing of it that might be a password.
struct AddressFault {
    QString text;
};

/// A text without "://" is the path of a file. Addresses are
///     postgresql://host/catalog, postgresql:///catalog?host=/folder&port=N, sqlserver://host/catalog
/// with user, password and port in front of and behind the host where they are wanted, percent-encoded as in
/// every such address. Without a host it is this computer, without a user the platform signs in.
[[nodiscard]] std::variant<DatabaseAddress, AddressFault> readAddress(const QString& text);

} // namespace tarnwell
