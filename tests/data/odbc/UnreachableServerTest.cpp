#include "data/odbc/PostgresDialect.h"
#include "data/odbc/SqlServerDialect.h"
#include "data/recordset/Connection.h"
#include "support/RaisedNumber.h"

#include <arpa/inet.h>
#include <array>
#include <future>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tarnwell::test {

namespace {

/// A port of this computer that lets everybody in and says nothing, or lets nobody in.
class DeadPort {
public:
    explicit DeadPort(bool listens) : m_socket(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* place = reinterpret_cast<sockaddr*>(&address);
        const bool bound = bind(m_socket, place, size) == 0 && (!listens || listen(m_socket, 16) == 0) &&
                           getsockname(m_socket, place, &size) == 0;
        EXPECT_TRUE(bound);
        m_number = ntohs(address.sin_port);
    }
    ~DeadPort() { close(m_socket); }
    DeadPort(const DeadPort&) = delete;
    DeadPort& operator=(const DeadPort&) = delete;
    [[nodiscard]] QString place() const { return QStringLiteral("127.0.0.1:%1").arg(m_number); }

private:
    int m_socket;
    int m_number = 0;
};

/// What opening a catalog there raises.
RunTimeError openingOf(QStringView provider, const QString& place) {
    Connection connection;
    connection.setConnectionString(
        QStringLiteral("Provider=%1;Initial Catalog=jobs;Data Source=%2;User ID=ann;Password=x")
            .arg(provider, place));
    try {
        connection.Open();
    } catch (const RunTimeError& error) {
        return error;
    }
    return {0, {}, {}};
}

/// A program that waited for ever would run into the limit of its test.
TEST(UnreachableServer, IsAnErrorThatNamesIt) {
    const DeadPort closed(false);
    const DeadPort silent(true);
    std::vector<std::pair<const DeadPort*, std::future<RunTimeError>>> openings;
    for (const QStringView provider : {data::postgresProvider, data::sqlServerProvider})
        for (const DeadPort* port : {&closed, &silent})
            openings.emplace_back(port, std::async(std::launch::async, openingOf, provider, port->place()));
    for (auto& [port, opening] : openings) {
        const RunTimeError error = opening.get();
        EXPECT_EQ(error.number(), -2147467259);
        EXPECT_TRUE(error.is(Failure::DatabaseFailure)) << error.what();
        EXPECT_TRUE(error.description().contains("could not be reached")) << error.what();
        EXPECT_TRUE(error.description().contains("127.0.0.1")) << error.what();
    }
}

} // namespace

} // namespace tarnwell::test
