#include "data/transfer/DatabaseAddress.h"

#include "data/engine/ConnectionString.h"
#include "data/engine/Providers.h"

#include <QUrl>
#include <QUrlQuery>

#include <algorithm>
#include <array>

namespace tarnwell {

namespace {

struct ServerKind {
    const char* scheme;
    QStringView provider;
    char beforePort;             ///< In "Data Source".
    const char* encryptionPart;  ///< Of the address.
    const char* encryptionEntry; ///< The same in the connection string.
    const char* platformSignIn;  ///< Entry of the connection string where no user is named.
};

constexpr std::array serverKinds{
    ServerKind{"postgresql", postgresProvider, ':', "sslmode", "SSLMode", ""},
    ServerKind{"postgres", postgresProvider, ':', "sslmode", "SSLMode", ""},
    ServerKind{"sqlserver", sqlServerProvider, ',', "encrypt", "Encrypt", ";Integrated Security=SSPI"},
};

AddressFault fault(const QString& text) {
    return {text};
}

/// Keeps blanks and quotes at its ends.
QString entry(const char* key, const QString& value) {
    if (value.isEmpty())
        return {};
    const bool asItIs = value == value.trimmed() && !value.startsWith(QLatin1Char('"'));
    return QStringLiteral(";%1=%2").arg(QLatin1String(key), asItIs ? value : u'"' + value + u'"');
}

bool isPort(const QString& text) {
    constexpr uint largestPort = 65'535;
    bool isNumber = false;
    const uint port = text.toUInt(&isNumber);
    return isNumber && port > 0 && port <= largestPort;
}

/// The first part behind the question mark that such an address does not have; empty when there is none.
QString unknownPart(const QUrlQuery& query, const ServerKind& kind) {
    const QStringList known{QStringLiteral("host"), QStringLiteral("port"),
                            QString::fromLatin1(kind.encryptionPart)};
    for (const auto& [key, value] : query.queryItems())
        if (!known.contains(key))
            return key;
    return {};
}

struct Parts {
    QString host;
    QString port;
    QString catalog;
    QString user;
    QString password;
    QString encryption;
};

Parts partsOf(const QUrl& url, const ServerKind& kind) {
    const QUrlQuery query(url);
    const auto part = [&](const char* key) {
        return query.queryItemValue(QLatin1String(key), QUrl::FullyDecoded);
    };
    Parts parts{.host = url.host(QUrl::FullyDecoded),
                .port = url.port() >= 0 ? QString::number(url.port()) : part("port"),
                .catalog = url.path(QUrl::FullyDecoded).mid(1),
                .user = url.userName(QUrl::FullyDecoded),
                .password = url.password(QUrl::FullyDecoded),
                .encryption = part(kind.encryptionPart)};
    if (parts.host.isEmpty())
        parts.host = part("host");
    return parts;
}

/// Empty when nothing is wrong.
QString faultOf(const Parts& parts) {
    if (parts.catalog.isEmpty() || parts.catalog.contains(u'/'))
        return QStringLiteral("an address names one catalog behind the server: postgresql://host/catalog");
    if (!parts.port.isEmpty() && !isPort(parts.port))
        return QStringLiteral("the port in an address is a number up to 65535");
    if (parts.port.isEmpty() && parts.host.contains(u':'))
        return QStringLiteral("a host that is named by numbers with colons needs its port too");
    for (const QString& part : {parts.host, parts.catalog, parts.user, parts.password, parts.encryption})
        if (part.contains(u';') || part.contains(QChar(u'\0')))
            return QStringLiteral("no name and no password in an address may hold a semicolon");
    return {};
}

} // namespace

std::variant<DatabaseAddress, AddressFault> readAddress(const QString& text) {
    const qsizetype mark = text.indexOf(QLatin1String("://"));
    if (mark < 0)
        return DatabaseAddress{text, text, fileConnectionString(text)};
    const QString scheme = text.first(mark).toLower();
    const auto kind = std::ranges::find_if(
        serverKinds, [&](const ServerKind& known) { return scheme == QLatin1String(known.scheme); });
    if (kind == serverKinds.end())
        return fault(
            QStringLiteral("'%1' is no kind of server; known are postgresql and sqlserver").arg(scheme));
    const QUrl url(text);
    if (!url.isValid() || url.hasFragment())
        return fault(QStringLiteral("an address is written %1://host/catalog").arg(scheme));
    if (const QString part = unknownPart(QUrlQuery(url), *kind); !part.isEmpty())
        return fault(QStringLiteral("an address has no part '%1'; known are host, port and %2")
                         .arg(part, QLatin1String(kind->encryptionPart)));
    const Parts parts = partsOf(url, *kind);
    if (const QString wrong = faultOf(parts); !wrong.isEmpty())
        return fault(wrong);
    const QString server =
        parts.port.isEmpty() ? parts.host : parts.host + QLatin1Char(kind->beforePort) + parts.port;
    return DatabaseAddress{
        .shown = url.toDisplayString(),
        .path = {},
        .connectionString = QStringLiteral("Provider=%1").arg(kind->provider) +
                            entry("Initial Catalog", parts.catalog) + entry("Data Source", server) +
                            entry("User ID", parts.user) + entry("Password", parts.password) +
                            entry(kind->encryptionEntry, parts.encryption) +
                            (parts.user.isEmpty() ? QString::fromLatin1(kind->platformSignIn) : QString())};
}

} // namespace tarnwell
