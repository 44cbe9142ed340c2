#include "batch/Workers.h"

#include "batch/MapJob.h"
#include "batch/WorkerProcesses.h"
#include "toolkit/Application.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>

namespace quorrin {

namespace fs = std::filesystem;

namespace {

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

void work(const Request& request, const NextMap& nextMap, const Tell& tell)
{
    int argc = 1;
    char name[] = "quorrin-map-batch";
    char* argv[] = {name, nullptr};
    const ScreenlessToolkit toolkit(argc, argv);
    while (const auto map = nextMap())
        if (!tell(outcomeOf(request, *map)))
            return;
}

/// The line that tells how far the work is, on a terminal only.
class Progress {
public:
    explicit Progress(std::size_t maps) : maps_(maps), shown_(errorsGoToTerminal()) {}
    ~Progress() { clear(); }
    void clear() const
    {
        if (shown_)
            std::fputs("\r\033[K", stderr);
    }
    void step()
    {
        ++done_;
        if (!shown_)
            return;
        std::fprintf(stderr, "\r%zu of %zu maps", done_, maps_);
        std::fflush(stderr);
    }
    void tell(const std::string& map, const char* message)
    {
        clear();
        std::fprintf(stderr, "%s: %s\n", map.c_str(), message);
    }

private:
    std::size_t maps_;
    std::size_t done_ = 0;
    bool shown_;
};

} // namespace

bool runAll(const Request& request)
{
    refuseSharedOutputs(request);
    const auto newFolders = missingFolders(request);
    std::vector<bool> finished(request.maps.size(), false);
    bool allWell = true;
    Progress progress(request.maps.size());
    const auto take = [&](const Outcome& outcome) {
        finished[static_cast<std::size_t>(outcome.map)] = true;
        progress.step();
        allWell = allWell && !outcome.failed;
        if (outcome.failed || outcome.message[0] != '\0')
            progress.tell(request.maps[static_cast<std::size_t>(outcome.map)], outcome.message);
    };
    const auto cleanUp = [&] {
        removeBegun(request);
        std::error_code inUse;
        for (const auto& folder : newFolders)
            fs::remove(folder, inUse);
        progress.clear();
    };
    shareWork(
        std::min(request.jobs, static_cast<int>(request.maps.size())), static_cast<int>(request.maps.size()),
        [&](const NextMap& nextMap, const Tell& tell) { work(request, nextMap, tell); }, take, cleanUp);
    for (std::size_t map = 0; map < finished.size(); ++map) {
        if (!finished[map]) {
            allWell = false;
            removeBegun(request);
            progress.tell(request.maps[map], "The work on this map ended unexpectedly.");
        }
    }
    return allWell;
}

} // namespace quorrin
