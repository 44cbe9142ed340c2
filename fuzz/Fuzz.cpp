#include "Fuzz.h"

#include "app/App.h"
#include "toolkit/Application.h"
#include "toolkit/ScriptedPlatform.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

using namespace quorrin;

namespace {

std::string folder;

/// Starts the program without its window.
void start(int& argc, char** argv)
{
    folder = (std::filesystem::temp_directory_path() / "quorrin-fuzz-XXXXXX").string();
    if (!mkdtemp(folder.data()))
        std::abort();
    std::atexit([] { std::filesystem::remove_all(folder); });
    setenv("XDG_DATA_HOME", folder.c_str(), true);
    static const ScreenlessToolkit toolkit(argc, argv);
    const ScriptedPlatform nobody;
    App().Event_Open();
}

} // namespace

std::string fuzz::file(const std::string& content)
{
    auto path = folder + "/input";
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

void fuzz::expect(bool condition, const char* rule)
{
    if (condition)
        return;
    std::fprintf(stderr, "broken rule: %s\n", rule);
    std::abort();
}

/// Freed memory is kept from use only for a while, so that the memory in use can be limited.
extern "C" const char* __asan_default_options()
{
    return "quarantine_size_mb=8";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    start(*argc, *argv);
    return 0;
}
