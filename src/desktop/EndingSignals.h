#pragma once

#include <functional>

class QObject;

namespace quorrin {

/// Has `act` called in the event loop, as long as the owner lives, when a signal ends the program; that ends it then.
void beforeEndingSignals(QObject& owner, std::function<void()> act);

} // namespace quorrin
