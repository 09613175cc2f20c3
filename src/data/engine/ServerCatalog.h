#pragma once

#include "data/schema/SchemaVersion.h"

#include <QString>
#include <QStringList>

namespace tarnwell::data {

/// A catalog on a server, as those see it who set it up and look after it. Rows are the matter of `Engine`.
/// Everything connects by itself and raises what opening a connection raises, and PermissionDenied for one
/// who may not do what was asked for.
class ServerCatalog {
public:
    enum class State {
        Missing,
        Empty,  ///< It is there and has no table.
        Ours,   ///< It has all our tables and columns, of this or an earlier version, and perhaps others.
        Foreign ///< It has tables, but not all of ours.
    };

    ServerCatalog() = default;
    virtual ~ServerCatalog() = default;
    ServerCatalog(const ServerCatalog&) = delete;
    ServerCatalog& operator=(const ServerCatalog&) = delete;

    /// Raises DatabaseForeign for one that a later version made.
    [[nodiscard]] virtual State state() = 0;
    /// Makes the groups of an owner, who may change tables, and of users, who may only read and write rows;
    /// then the catalog where it is missing; then, all or nothing, tables, indexes, relations and initial
    /// rows, owned by the owner. Requires that it is missing or empty.
    /// Raises DataOverflow for a name that is too long.
    virtual void create() = 0;
    /// Brings a catalog of an earlier version to the current one, all or nothing, while others work with it;
    /// the version that it had. One that is current already stays as it is. Of several who do this at once
    /// the others wait for the first one. Raises PermissionDenied, before anything else, for one who may not
    /// change the tables, and what the calls raise.
    [[nodiscard]] virtual int upgrade(const schema::UpgradeCalls& calls) = 0;
    /// Removes the catalog and all that is in it; its groups stay. For one that was made in vain: nobody else
    /// may be using it.
    virtual void drop() = 0;
    /// Lets somebody who can sign in to the server work with the catalog.
    virtual void admit(const QString& user) = 0;
    /// What it lacks of our columns, relations and indexes, and the tables whose new keys would not lie
    /// behind those that they have; one line each.
    [[nodiscard]] virtual QStringList problems() = 0;
    /// Has the server count what its tables hold, by which it plans joins. Needed after a catalog was filled
    /// all at once.
    virtual void updateStatistics() = 0;
};

} // namespace tarnwell::data
