#include "desktop/EndingSignals.h"

namespace quorrin {

/// No signal ends a program with windows there.
void beforeEndingSignals(QObject&, std::function<void()>)
{}

} // namespace quorrin
