#include "batch/MapJob.h"
#include "batch/WorkerProcesses.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>
#include <thread>
#include <vector>

namespace quorrin {

namespace {

static_assert(sizeof(Outcome) <= 512, "POSIX promises pieces of this size to stay whole");

[[noreturn]] void fail(const char* call)
{
    throw std::system_error(errno, std::generic_category(), call);
}

/// What workers say and this process hears.
class Pipe {
public:
    Pipe()
    {
        if (pipe(ends_) != 0)
            fail("pipe");
    }
    ~Pipe()
    {
        closeReading();
        closeWriting();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    void closeReading() { closeEnd(ends_[0]); }
    void closeWriting() { closeEnd(ends_[1]); }
    bool take(Outcome& outcome) const { return read(ends_[0], &outcome, sizeof outcome) == sizeof outcome; }
    bool put(const Outcome& outcome) const { return write(ends_[1], &outcome, sizeof outcome) == sizeof outcome; }

private:
    static void closeEnd(int& end)
    {
        if (end >= 0)
            close(end);
        end = -1;
    }
    int ends_[2];
};

/// A number that all workers see and count on: that of the next map. Shares that were dealt out beforehand would leave
/// workers idle when maps take unequal time.
class SharedCount {
public:
    SharedCount()
    {
        void* memory = mmap(nullptr, sizeof *next_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            fail("mmap");
        next_ = new (memory) std::atomic<int>(0);
    }
    ~SharedCount() { munmap(next_, sizeof *next_); }
    SharedCount(const SharedCount&) = delete;
    SharedCount& operator=(const SharedCount&) = delete;
    std::optional<int> next(int end) const
    {
        const int number = (*next_)++;
        return number < end ? std::optional(number) : std::nullopt;
    }

private:
    static_assert(std::atomic<int>::is_always_lock_free, "so that it holds between processes");
    std::atomic<int>* next_;
};

// By these signals others end a program. What their handler needs: the workers, and where to say that one came.
constexpr int endingSignals[] = {SIGINT, SIGTERM, SIGHUP};
std::vector<pid_t> processes;
volatile std::sig_atomic_t endedBy = 0;

sigset_t setOfEndingSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : endingSignals)
        sigaddset(&signals, number);
    return signals;
}

/// Has the function called at each of them that whoever started the program does not want ignored.
void onEndingSignals(void (*handler)(int))
{
    for (const int number : endingSignals)
        if (std::signal(number, handler) == SIG_IGN)
            std::signal(number, SIG_IGN);
}

/// Nobody is left then who could bring an outcome, so the work comes to its end.
void endWorkers(int number)
{
    endedBy = number;
    for (const pid_t process : processes)
        kill(process, SIGTERM);
}

/// A worker, in which all of these signals are held back, ends when it is told to and never with half of its results in
/// place.
void endWhenTold()
{
    std::signal(SIGTERM, SIG_DFL);
    std::thread([] {
        sigset_t told;
        sigemptyset(&told);
        sigaddset(&told, SIGTERM);
        int number = 0;
        sigwait(&told, &number);
        const std::lock_guard lock(publishing);
        _exit(EXIT_FAILURE);
    }).detach();
}

} // namespace

void shareWork(int workers, int maps, const std::function<void(const NextMap&, const Tell&)>& work,
               const std::function<void(const Outcome&)>& take, const std::function<void()>& cleanUp)
{
    // A worker that has died must not take this process with it.
    std::signal(SIGPIPE, SIG_IGN);
    const SharedCount count;
    Pipe outcomes;
    // Held back until all workers are known.
    const sigset_t signals = setOfEndingSignals();
    sigset_t before;
    sigprocmask(SIG_BLOCK, &signals, &before);
    for (int worker = 0; worker < workers; ++worker) {
        const pid_t process = fork();
        if (process < 0)
            fail("fork");
        if (process == 0) {
            outcomes.closeReading();
            endWhenTold();
            work([&] { return count.next(maps); }, [&](const Outcome& outcome) { return outcomes.put(outcome); });
            _exit(EXIT_SUCCESS);
        }
        processes.push_back(process);
    }
    onEndingSignals(endWorkers);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    outcomes.closeWriting();

    for (Outcome outcome; outcomes.take(outcome);)
        take(outcome);
    for (const pid_t process : processes)
        waitpid(process, nullptr, 0);
    if (endedBy != 0) {
        cleanUp();
        onEndingSignals(SIG_DFL);
        std::raise(endedBy);
    }
}

bool errorsGoToTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

} // namespace quorrin
