// relay FROM TO [MICROSECONDS]: listens on the unix socket FROM and passes what it hears on to the socket TO,
// and back, each way later by that many microseconds (500: a network of 1 ms a trip). So a benchmark meets a
// server that stands in another building. At its end (SIGTERM) it says how many trips there were: requests
// that waited for an answer.

#include <array>
#include <atomic>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

std::atomic<long> trips = 0;
std::atomic<bool> answered = true; ///< The last to speak was the server.

int openSocket(const char* path, sockaddr_un& address) {
    address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path, sizeof(address.sun_path) - 1);
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

const sockaddr* generic(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

void writeAll(int to, const char* bytes, ssize_t count) {
    while (count > 0) {
        const ssize_t written = write(to, bytes, static_cast<std::size_t>(count));
        if (written <= 0)
            return;
        bytes += written;
        count -= written;
    }
}

/// What arrives during a wait goes on with the next one, so that the bandwidth is not what is tested.
void pass(int from, int to, std::chrono::microseconds delay, bool isRequest) {
    prctl(PR_SET_TIMERSLACK, 1);
    std::vector<char> bytes(1 << 18);
    for (ssize_t count = 0; (count = read(from, bytes.data(), bytes.size())) > 0;) {
        if (answered.exchange(!isRequest) && isRequest)
            ++trips;
        std::this_thread::sleep_for(delay);
        writeAll(to, bytes.data(), count);
    }
    shutdown(to, SHUT_WR);
}

void serve(int client, const char* server, std::chrono::microseconds delay) {
    sockaddr_un address{};
    const int upstream = openSocket(server, address);
    if (connect(upstream, generic(address), sizeof(address)) == 0) {
        std::thread answers(pass, upstream, client, delay, false);
        pass(client, upstream, delay, true);
        answers.join();
    }
    close(upstream);
    close(client);
}

void report(int /*signal*/) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), trips.load()).ptr;
    constexpr std::string_view words = " trips\n";
    (void)!write(STDOUT_FILENO, text.data(), static_cast<std::size_t>(end - text.begin()));
    (void)!write(STDOUT_FILENO, words.data(), words.size());
    _exit(0);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fputs("relay FROM TO [MICROSECONDS]\n", stderr);
        return 2;
    }
    int delay = 500;
    if (argc > 3)
        std::from_chars(argv[3], argv[3] + std::strlen(argv[3]), delay);
    sockaddr_un address{};
    const int listening = openSocket(argv[1], address);
    unlink(argv[1]);
    if (bind(listening, generic(address), sizeof(address)) != 0 || listen(listening, 64) != 0) {
        std::perror(argv[1]);
        return 1;
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGTERM, report);
    for (;;) {
        const int client = accept(listening, nullptr, nullptr);
        if (client >= 0)
            std::thread(serve, client, argv[2], std::chrono::microseconds(delay)).detach();
    }
}
