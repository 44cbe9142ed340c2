#include "toolkit/BackgroundWork.h"

#include <utility>

namespace quorrin {

BackgroundWork::~BackgroundWork()
{
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
}

void BackgroundWork::Start(std::function<void()> work)
{
    if (!thread_.joinable())
        thread_ = std::thread([this] { run(); });
    {
        const std::lock_guard lock(mutex_);
        waiting_ = std::move(work);
    }
    changed_.notify_all();
}

void BackgroundWork::Wait()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !working_ && !waiting_; });
}

void BackgroundWork::run()
{
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return waiting_ || ends_; });
        if (!waiting_)
            return;
        auto work = std::exchange(waiting_, nullptr);
        working_ = true;
        lock.unlock();
        work();
        work = nullptr; // what it holds may be large
        lock.lock();
        working_ = false;
        changed_.notify_all();
    }
}

} // namespace quorrin
