#pragma once

#include <functional>
#include <optional>

namespace quorrin {

// Maps are worked on in processes of their own, not in threads: the program's rules rest on one main thread and on
// shared pictures. Where the system cannot divide a process into several, this one does all the work.

/// The outcome of one map, small enough to be written to a pipe in one piece.
struct Outcome {
    int map = 0;
    bool failed = false;
    char message[240] = {};
};

/// Gives a map that no worker has had yet, by its number; nothing when there is none left.
using NextMap = std::function<std::optional<int>()>;
/// False when nobody is left to be told.
using Tell = std::function<bool(const Outcome& outcome)>;

/// Has `work` done by so many workers, which share the maps from 0 to `maps` - 1, and hands their outcomes to `take` in
/// this process. When a signal ends the program, the workers end, then `cleanUp` is called, and this does not return.
void shareWork(int workers, int maps, const std::function<void(const NextMap& nextMap, const Tell& tell)>& work,
               const std::function<void(const Outcome& outcome)>& take, const std::function<void()>& cleanUp);

/// Whether a person may be looking at what goes to standard error.
bool errorsGoToTerminal();

} // namespace quorrin
