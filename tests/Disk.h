#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// While it lives, no file of this process grows beyond this many bytes.
class FullDisk {
public:
    explicit FullDisk(std::size_t room)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit full{room, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
};

/// Whether all that is expected in `work` holds for nobody, who may not write everywhere as the administrator may.
template <typename Work>
testing::AssertionResult holdsForNobody(Work work)
{
    const pid_t nobody = fork();
    if (nobody == 0) {
        EXPECT_TRUE(geteuid() != 0 || setuid(65534) == 0);
        work();
        _exit(testing::Test::HasFailure());
    }
    int status = 0;
    waitpid(nobody, &status, 0);
    return status == 0 ? testing::AssertionSuccess() : testing::AssertionFailure() << "status " << status;
}
