#pragma once

#include "batch/CommandLine.h"

namespace quorrin {

/// Carries out the request for all its maps, `jobs` of them at a time, and tells on standard error which ones failed
/// and, on a terminal, how far it is. True when none failed. Raises UsageError, before anything is written, when two
/// maps would write the same file.
bool runAll(const Request& request);

} // namespace quorrin
