#include "PlainPage.h"
#include "Program.h"

#include "toolkit/QtBridge.h"

#include <benchmark/benchmark.h>

// Each page as the program composes it and, beside it, composed plainly.

using namespace quorrin;

namespace {

/// The largest difference of any channel of any pixel.
int difference(const QImage& a, const QImage& b)
{
    int largest = a.size() == b.size() ? 0 : 255;
    for (int y = 0; y < a.height() && largest < 255; ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = std::max(
                {largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    return largest;
}

/// With all pixels that a screen of this many a unit shows. The page before is still held, so nothing of it is used.
void composed(benchmark::State& state, Density density, int scale)
{
    Program program(density);
    for (auto _ : state) {
        const auto before = program.window.myImage;
        program.window.RenderMap(true);
        benchmark::DoNotOptimize(QtBridge::drawnImage(*program.window.myImage, scale));
    }
}

void plain(benchmark::State& state, Density density)
{
    Program program(density);
    // The second composition finds the shared pictures as every later one does.
    program.window.RenderMap(true);
    const int off = difference(QtBridge::image(*program.window.myImage), plainPage(program.window));
    state.counters["difference"] = off;
    if (off > 1)
        return state.SkipWithError("The two pages are not the same.");
    for (auto _ : state)
        benchmark::DoNotOptimize(plainPage(program.window));
}

BENCHMARK_CAPTURE(composed, blank, Density::Blank, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(plain, blank, Density::Blank)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(composed, ordinary, Density::Ordinary, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(composed, ordinary twice as sharp, Density::Ordinary, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(composed, ordinary four times as sharp, Density::Ordinary, 4)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(plain, ordinary, Density::Ordinary)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(composed, densest, Density::Densest, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(composed, densest twice as sharp, Density::Densest, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(composed, densest four times as sharp, Density::Densest, 4)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(plain, densest, Density::Densest)->Unit(benchmark::kMicrosecond);

} // namespace
