#include "batch/Workers.h"

#include "batch/MapJob.h"
#include "toolkit/Application.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <system_error>
#include <thread>

// Maps are worked on in processes of their own, not in threads: the program's rules rest on one main thread and on
// shared pictures. A worker takes the next map's number from one pipe and puts its outcome into another; a number is
// taken by exactly one of them.

namespace quorrin {

namespace fs = std::filesystem;

namespace {

/// The outcome of one map, small enough to be written to a pipe in one piece.
struct Outcome {
    int map = 0;
    bool failed = false;
    char message[240] = {};
};
static_assert(sizeof(Outcome) <= 512, "POSIX promises pieces of this size to stay whole");

struct Pipe {
    Pipe()
    {
        if (pipe(ends) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
    }
    ~Pipe()
    {
        closeReading();
        closeWriting();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    void closeReading() { closeEnd(ends[0]); }
    void closeWriting() { closeEnd(ends[1]); }
    template <typename T>
    bool take(T& value) const
    {
        return read(ends[0], &value, sizeof value) == sizeof value;
    }
    template <typename T>
    bool put(const T& value) const
    {
        return write(ends[1], &value, sizeof value) == sizeof value;
    }

private:
    static void closeEnd(int& end)
    {
        if (end >= 0)
            close(end);
        end = -1;
    }
    int ends[2];
};

// By these signals others end a program. What their handler needs: the workers, and where to say that one came.
constexpr int endingSignals[] = {SIGINT, SIGTERM, SIGHUP};
std::vector<pid_t> workers;
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

/// Nobody is left then who could bring an outcome, so the work below comes to its end.
void endWorkers(int number)
{
    endedBy = number;
    for (const pid_t worker : workers)
        kill(worker, SIGTERM);
}

/// The folders that are to be made for the results, the innermost first.
std::vector<fs::path> missingFolders(const Request& request)
{
    std::vector<fs::path> missing;
    for (auto folder = fs::absolute(targetFolder(request)); !fs::exists(folder); folder = folder.parent_path())
        missing.push_back(folder);
    return missing;
}

void refuseSharedOutputs(const Request& request)
{
    std::map<std::string, std::string> writers;
    for (const auto& map : request.maps)
        for (const auto& name : outputNames(request, map))
            if (const auto [first, isNew] = writers.emplace(name, map); !isNew)
                throw UsageError("\"" + first->second + "\" and \"" + map + "\" would both write \"" + name + "\"");
}

Outcome outcomeOf(const Request& request, int map)
{
    Outcome outcome{.map = map};
    std::string message;
    try {
        message = runJob(request, request.maps[static_cast<std::size_t>(map)]);
    } catch (const std::exception& error) {
        outcome.failed = true;
        message = error.what();
    }
    message.copy(outcome.message, sizeof outcome.message - 1);
    return outcome;
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

void work(const Request& request, const Pipe& numbers, const Pipe& outcomes)
{
    endWhenTold();
    int argc = 1;
    char name[] = "quorrin-map-batch";
    char* argv[] = {name, nullptr};
    const ScreenlessToolkit toolkit(argc, argv);
    for (int map = 0; numbers.take(map);)
        if (!outcomes.put(outcomeOf(request, map)))
            return;
}

/// The line that tells how far the work is, on a terminal only.
class Progress {
public:
    explicit Progress(std::size_t maps) : maps_(maps), shown_(isatty(STDERR_FILENO) != 0) {}
    ~Progress() { clear(); }
    void clear() const
    {
        if (shown_)
            std::fputs("\r\033[K", stderr);
    }
    void step() { ++done_, show(); }
    void tell(const std::string& map, const char* message)
    {
        clear();
        std::fprintf(stderr, "%s: %s\n", map.c_str(), message);
    }

private:
    void show() const
    {
        if (shown_)
            std::fprintf(stderr, "\r%zu of %zu maps", done_, maps_), std::fflush(stderr);
    }
    std::size_t maps_;
    std::size_t done_ = 0;
    bool shown_;
};

} // namespace

bool runAll(const Request& request)
{
    refuseSharedOutputs(request);
    // A worker that has died must not take this process with it.
    std::signal(SIGPIPE, SIG_IGN);
    Pipe numbers;
    Pipe outcomes;
    const auto count = static_cast<int>(request.maps.size());
    const auto newFolders = missingFolders(request);
    // Held back until all workers are known.
    const sigset_t signals = setOfEndingSignals();
    sigset_t before;
    sigprocmask(SIG_BLOCK, &signals, &before);
    for (int worker = 0; worker < std::min(request.jobs, count); ++worker) {
        const pid_t child = fork();
        if (child < 0)
            throw std::system_error(errno, std::generic_category(), "fork");
        if (child == 0) {
            numbers.closeWriting();
            outcomes.closeReading();
            work(request, numbers, outcomes);
            _exit(0);
        }
        workers.push_back(child);
    }
    onEndingSignals(endWorkers);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    numbers.closeReading();
    outcomes.closeWriting();

    // One more number than there are workers at a time: enough to keep them busy, never so much as to fill the pipe.
    int given = 0;
    const auto give = [&] {
        if (given < count && numbers.put(given))
            ++given;
        if (given == count)
            numbers.closeWriting();
    };
    for (std::size_t ahead = 0; ahead <= workers.size(); ++ahead)
        give();

    std::vector<bool> finished(request.maps.size(), false);
    bool allWell = true;
    Progress progress(request.maps.size());
    for (Outcome outcome; outcomes.take(outcome); give()) {
        finished[static_cast<std::size_t>(outcome.map)] = true;
        progress.step();
        allWell = allWell && !outcome.failed;
        if (outcome.failed || outcome.message[0] != '\0')
            progress.tell(request.maps[static_cast<std::size_t>(outcome.map)], outcome.message);
    }
    for (const pid_t worker : workers)
        waitpid(worker, nullptr, 0);
    if (endedBy != 0) {
        for (const pid_t worker : workers)
            removeBegun(request, worker);
        std::error_code inUse;
        for (const auto& folder : newFolders)
            fs::remove(folder, inUse);
        progress.clear();
        onEndingSignals(SIG_DFL);
        std::raise(endedBy);
    }
    for (std::size_t map = 0; map < finished.size(); ++map) {
        if (!finished[map]) {
            allWell = false;
            progress.tell(request.maps[map], "The work on this map ended unexpectedly.");
        }
    }
    return allWell;
}

} // namespace quorrin
