#pragma once

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace tarnwell::test {

/// The tests may run as root, whom no permission stops.
class WithoutPrivileges {
public:
    WithoutPrivileges() : m_user(::geteuid()) {
        if (m_user == 0) {
            EXPECT_EQ(::setresuid(nobody, nobody, 0), 0);
        }
    }
    ~WithoutPrivileges() { EXPECT_EQ(::setresuid(m_user, m_user, m_user), 0); }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    uid_t m_user;
};

/// A file that grows beyond so many bytes fails, as on a full disk.
class FilesUpTo {
public:
    explicit FilesUpTo(qsizetype bytes) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limited{static_cast<rlim_t>(bytes), m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FilesUpTo() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    FilesUpTo(const FilesUpTo&) = delete;
    FilesUpTo& operator=(const FilesUpTo&) = delete;

private:
    rlimit m_before{};
    void (*m_signal)(int);
};

} // namespace tarnwell::test
