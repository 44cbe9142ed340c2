#include "Program.h"

#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>

#include <string>

// What a person waits for: the start of the program and the object menu.

using namespace quorrin;

namespace {

void objectMenu(benchmark::State& state)
{
    Program program(Density::Blank);
    for (auto _ : state) {
        MenuItem menu;
        program.window.ShowObjectPopupMenu(menu, "Object-");
        benchmark::DoNotOptimize(menu.Items().size());
    }
}

/// Runs this program anew until it has done what the argument tells.
void start(benchmark::State& state, const char* what)
{
    for (auto _ : state) {
        char name[] = "quorrin-bench";
        std::string argument = what;
        char* arguments[] = {name, argument.data(), nullptr};
        pid_t child = 0;
        int status = 0;
        if (posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, arguments, environ) != 0
            || waitpid(child, &status, 0) != child || status != 0)
            return state.SkipWithError("The program did not start.");
    }
}

BENCHMARK(objectMenu)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(start, toFirstPage, "--first-page")->Unit(benchmark::kMillisecond)->UseRealTime();
/// Qt's own part of the above.
BENCHMARK_CAPTURE(start, qtAlone, "--qt-alone")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
