// Measures what a person waits for. Needs libbenchmark-dev; not part of the default build:
//
//     cmake --preset release -DQUORRIN_BENCH=ON && cmake --build build --target quorrin-bench
//     build/quorrin-bench --benchmark_repetitions=9 --benchmark_report_aggregates_only
//
// Compare medians of pairs in one run, such as composed/densest with plain/densest. `difference` tells by how much the
// two pages differ in any channel of any pixel, `bytes` how large the exported file is.

#include "Program.h"

#include "desktop/DesktopPlatform.h"
#include "toolkit/Application.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <string_view>

int main(int argc, char** argv)
{
    const std::string_view only = argc == 2 ? argv[1] : "";
    if (only == "--first-page" || only == "--qt-alone") {
        const quorrin::ScreenlessToolkit toolkit(argc, argv);
        if (only == "--first-page")
            const Program program(Density::Blank);
        return 0;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    quorrin::setUpDesktop();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
