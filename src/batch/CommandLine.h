#pragma once

#include "output/Paper.h"
#include "output/Printing.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace quorrin {

/// What the companion was asked to do.
struct Request {
    enum class Command { Help, Version, Export, Sheet, Print, Vtt, Thumbnail, Upgrade };
    Command command = Command::Help;
    bool pictureSet = false;
    /// Pixels a unit of exported pictures.
    int scale = 1;
    /// Only the squares of the page.
    bool board = false;
    /// Pixels a square of pictures that are cut to the squares.
    int cell = 70;
    Print what = Print::Map;
    PaperWish paper;
    int copies = 1;
    /// The side of a printed square in points; 0 to fill one page, whatever the size.
    double square = 0;
    bool blackAndWhite = false;
    bool markers = false;
    /// The longer side of a thumbnail.
    int size = 256;
    /// The folder where the files go, empty for the current one; the file of a thumbnail.
    std::string output;
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
