#include "Program.h"

#include "toolkit/QtBridge.h"

#include <benchmark/benchmark.h>

#include <QBuffer>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

// Opening, saving and exporting.

using namespace quorrin;

namespace {

/// A file in a folder that goes with it.
struct TemporaryFile {
    TemporaryFile() : folder((std::filesystem::temp_directory_path() / "quorrin-bench-XXXXXX").string())
    {
        if (!mkdtemp(folder.data()))
            throw std::runtime_error("There is no folder for temporary files.");
        item = New<FolderItem>(folder + "/Map.qrnm");
    }
    ~TemporaryFile() { std::filesystem::remove_all(folder); }
    std::string folder;
    Ref<FolderItem> item;
};

void save(benchmark::State& state, Density density)
{
    Program program(density);
    const TemporaryFile file;
    program.person.save = [&](const std::string&) { return file.item; };
    for (auto _ : state)
        if (!program.window.mSave())
            return state.SkipWithError("The map was not saved.");
}

void open(benchmark::State& state, Density density)
{
    Program program(density);
    const TemporaryFile file;
    program.person.save = [&](const std::string&) { return file.item; };
    program.window.mSave();
    for (auto _ : state)
        program.window.mOpen(file.item);
    if (!program.person.messages.empty())
        state.SkipWithError("The map was not opened.");
}

void exportPng(benchmark::State& state, Density density)
{
    Program program(density);
    std::string bytes;
    for (auto _ : state)
        bytes = program.window.myImage->ToData(PictureFormat::Png, 100);
    state.counters["bytes"] = static_cast<double>(bytes.size());
}

/// The same picture by Qt's own writer with its defaults.
void exportPngByQt(benchmark::State& state, Density density)
{
    Program program(density);
    qsizetype bytes = 0;
    for (auto _ : state) {
        QBuffer buffer;
        QtBridge::image(*program.window.myImage).save(&buffer, "PNG");
        bytes = buffer.size();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

BENCHMARK_CAPTURE(open, blank, Density::Blank)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(open, densest, Density::Densest)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(save, blank, Density::Blank)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(save, densest, Density::Densest)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exportPng, ordinary, Density::Ordinary)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exportPngByQt, ordinary, Density::Ordinary)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exportPng, densest, Density::Densest)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(exportPngByQt, densest, Density::Densest)->Unit(benchmark::kMillisecond);

} // namespace
