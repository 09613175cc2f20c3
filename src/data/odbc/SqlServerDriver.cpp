#include "data/odbc/SqlServerDriver.h"

#include "data/engine/ConnectionString.h"
#include "data/odbc/DialectParts.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace tarnwell::data {

namespace {

/// What the two drivers call differently. Both keep several half-read statements on one connection (MARS),
/// as the recordsets of a screen are.
struct DriverWords {
    const char* head;
    const char* encryption; ///< The key.
    const char* encrypted;
    const char* unencrypted; ///< But for the sign-in itself, which is encrypted where the server can.
};
constexpr std::array<DriverWords, 2> driverWords{{
    {"Driver={FreeTDS};TDS_Version=7.4;ClientCharset=UTF-8;APP=Tarnwell;MARS_Connection=Yes;", "Encryption",
     "require", "request"},
    {"Driver={ODBC Driver 18 for SQL Server};APP=Tarnwell;MARS_Connection=Yes;", "Encrypt", "yes", "no"},
}};

bool isNo(const QString& value) {
    static constexpr std::array words{"no", "false", "optional"};
    return std::ranges::any_of(words, [&](const char* word) {
        return value.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    });
}

struct ServerPlace {
    QString server; ///< A host, perhaps with a named instance behind a backslash.
    QString port;
};

/// "host", "host,1433", "host:1433", "host\instance", each also behind two backslashes, as Windows writes the
/// name of a computer. This computer is an empty text, "." or "(local)".
ServerPlace placeOf(QString address) {
    while (address.startsWith(QLatin1Char('\\')))
        address.remove(0, 1);
    const qsizetype comma = address.indexOf(QLatin1Char(','));
    ServerPlace place{address, {}};
    if (comma >= 0)
        place = {address.first(comma).trimmed(), address.sliced(comma + 1).trimmed()};
    else if (address.count(QLatin1Char(':')) == 1) // more are an address of IPv6
        std::tie(place.server, place.port) = hostAndPort(address);
    const qsizetype instance = place.server.indexOf(QLatin1Char('\\'));
    const QString host = instance < 0 ? place.server : place.server.first(instance);
    if (host.isEmpty() || host == QLatin1String(".") ||
        host.compare(QLatin1String("(local)"), Qt::CaseInsensitive) == 0)
        place.server.replace(0, host.size(), QStringLiteral("localhost"));
    return place;
}

QString placeEntries(const ServerPlace& place, SqlServerDriver driver) {
    if (driver == SqlServerDriver::FreeTds)
        return driverEntry("Server", place.server) + driverEntry("Port", place.port);
    return driverEntry("Server",
                       place.port.isEmpty() ? place.server : place.server + QLatin1Char(',') + place.port);
}

} // namespace

QString sqlServerDriverString(const QString& connectionString, SqlServerDriver driver) {
    const DriverWords& words = driverWords.at(static_cast<std::size_t>(driver));
    const auto value = [&](const char* key) { return connectionValue(connectionString, QLatin1String(key)); };
    const QString user = value("User ID");
    const QString signIn = user.isEmpty() ? QStringLiteral("Trusted_Connection=Yes;")
                                          : driverEntry("UID", user) + driverPassword(value("Password"));
    const QString trusted = driver == SqlServerDriver::Microsoft
                                ? driverEntry("TrustServerCertificate", value("TrustServerCertificate"))
                                : QString();
    return QLatin1String(words.head) + placeEntries(placeOf(value("Data Source")), driver) +
           driverEntry("Database", value("Initial Catalog")) + signIn +
           driverEntry(words.encryption,
                       QLatin1String(isNo(value("Encrypt")) ? words.unencrypted : words.encrypted)) +
           trusted;
}

} // namespace tarnwell::data
