#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace quorrin {

/// Does work in a thread of its own, one piece after the other. Of what waits only the newest piece counts.
class BackgroundWork {
public:
    BackgroundWork() = default;
    /// Returns when all work is done.
    ~BackgroundWork();
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;

    /// Takes a piece of work, which must raise nothing; one that still waits is dropped.
    void Start(std::function<void()> work);
    /// Returns when there is nothing left to do.
    void Wait();

private:
    void run();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::function<void()> waiting_;
    bool working_ = false;
    bool ends_ = false;
    std::thread thread_;
};

} // namespace quorrin
