#include "Fuzz.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

// Feeds files to a fuzz target without a fuzzer. Arguments: folders.

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

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
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++files;
        }
    }
    return files > 0 ? 0 : 1;
}
