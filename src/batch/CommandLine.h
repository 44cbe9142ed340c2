#pragma once

#include "output/Printing.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace quorrin {

/// What the companion was asked to do.
struct Request {
    enum class Command { Help, Version, Export, Sheet, Print, Upgrade };
    Command command = Command::Help;
    bool pictureSet = false;
    /// Pixels a unit of exported pictures.
    int scale = 1;
    Print what = Print::Map;
    std::string paper = "A4";
    bool landscape = false;
    int copies = 1;
    /// Where the files go; empty for the current folder.
    std::string folder;
    /// How many maps are worked on at a time.
    int jobs = 1;
    std::vector<std::string> maps;
};

/// The command line makes no sense; the text says why.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Raises UsageError.
Request parseCommandLine(int argc, char** argv);

/// What --help prints.
extern const char* const usage;

} // namespace quorrin
