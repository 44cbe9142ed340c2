#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// What the fuzz targets share. A target is LLVMFuzzerTestOneInput; whatever it finds wrong ends the process.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

inline std::string text(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

/// The path of a file of this content. It is the same file each time.
std::string file(const std::string& content);

void expect(bool condition, const char* rule);

} // namespace fuzz
