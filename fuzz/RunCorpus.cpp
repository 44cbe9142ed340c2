#include "Fuzz.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/resource.h>

// Feeds files to a fuzz target without a fuzzer. Arguments: folders. No file of a corpus is worth much memory or time.

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

static rusage used()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage;
}

static long processorSeconds()
{
    return used().ru_utime.tv_sec + used().ru_stime.tv_sec;
}

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int files = 0;
    for (int n = 1; n < argc; ++n) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[n])) {
            std::printf("%s\n", entry.path().c_str());
            std::fflush(stdout);
            std::ostringstream content;
            content << std::ifstream(entry.path(), std::ios::binary).rdbuf();
            const std::string bytes = content.str();
            [[maybe_unused]] const long before = processorSeconds();
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++files;
#ifndef __SANITIZE_ADDRESS__
            fuzz::expect(used().ru_maxrss < 320 * 1024, "opening takes little memory");
            fuzz::expect(processorSeconds() - before < 5, "opening takes little time");
#endif
        }
    }
    return files > 0 ? 0 : 1;
}
