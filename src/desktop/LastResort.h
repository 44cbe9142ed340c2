#pragma once

#include <functional>

namespace quorrin {

/// Runs what the program does about something that happened; every way from Qt into the program's handlers leads
/// through here, so that no exception ever runs through Qt. One that nothing else caught is told to the person in one
/// message, shown when control is back in the event loop; window, map and unsaved changes stay as they are. True when
/// it ran to its end. `tells` false keeps the message back, for what would repeat one already shown.
bool guarded(const std::function<void()>& handler, bool tells = true) noexcept;

/// Shows such a message for a fault that came by another way.
void reportFault(const char* what);

} // namespace quorrin
