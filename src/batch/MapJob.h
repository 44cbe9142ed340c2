#pragma once

#include "batch/CommandLine.h"

#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

namespace quorrin {

/// Where the files of a request go.
std::filesystem::path targetFolder(const Request& request);

/// The names of the files that a request writes for one map.
std::vector<std::string> outputNames(const Request& request, const std::string& map);

/// Works on one map as a freshly started program would that opens it, and puts the results in the request's folder,
/// all of them or none. Gives a warning where they lack something that the map has. Raises std::exception with a
/// sentence for the person.
std::string runJob(const Request& request, const std::string& map);

/// Held while the results of a map come into place, which takes a moment and must not be broken off.
extern std::mutex publishing;

/// Removes what the workers of this run had begun when they were ended.
void removeBegun(const Request& request);

} // namespace quorrin
