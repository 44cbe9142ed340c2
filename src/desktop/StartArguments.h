#pragma once

#include <optional>
#include <string>

namespace quorrin {

/// What the command line of the window asks for.
struct StartArguments {
    /// The path of the map to open, empty for none.
    std::string map;
    /// Set where no window is wanted: the status with which the program ends.
    std::optional<int> status;
};

/// Reads the command line. Answers what needs no window, and tells what is wrong, on the standard streams.
StartArguments readArguments(int argc, char** argv);

} // namespace quorrin
