#include "batch/WorkerProcesses.h"

#include <io.h>

#include <cstdio>

namespace quorrin {

void shareWork(int, int maps, const std::function<void(const NextMap&, const Tell&)>& work,
               const std::function<void(const Outcome&)>& take, const std::function<void()>&)
{
    int next = 0;
    const NextMap nextMap = [&] { return next < maps ? std::optional(next++) : std::nullopt; };
    work(nextMap, [&](const Outcome& outcome) {
        take(outcome);
        return true;
    });
}

bool errorsGoToTerminal()
{
    return _isatty(_fileno(stderr)) != 0;
}

} // namespace quorrin
