#include "Program.h"

#include "app/Recovery.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>

// How long the person's next click may have to wait for a recovery copy: the part that is not done in another thread.

using namespace quorrin;

namespace {

void keepCopy(benchmark::State& state, Density density)
{
    const auto folder = std::filesystem::temp_directory_path() / "quorrin-bench-state";
    setenv("XDG_STATE_HOME", folder.c_str(), true);
    Program program(density);
    double worst = 0;
    {
        Recovery recovery(program.window);
        for (auto _ : state) {
            state.PauseTiming();
            recovery.KeepAtOnce();
            program.window.mySquares(1, 1)->thisObject = 1 + program.window.mySquares(1, 1)->thisObject % 20;
            program.window.isDirty = true;
            state.ResumeTiming();
            const auto start = std::chrono::steady_clock::now();
            recovery.Keep();
            worst = std::max(
                worst, std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
        }
        recovery.KeepAtOnce();
    }
    state.counters["worst_ms"] = worst;
    program.window.isDirty = false;
    std::filesystem::remove_all(folder);
}

BENCHMARK_CAPTURE(keepCopy, ordinary, Density::Ordinary)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(200);
BENCHMARK_CAPTURE(keepCopy, densest, Density::Densest)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(200);

} // namespace
