#include "desktop/EndingSignals.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

namespace quorrin {

namespace {

int signalPipe[2] = {-1, -1};

/// A handler may do hardly anything; the rest waits for the event loop. The next signal of the kind ends the program at
/// once.
void tellSignal(int number)
{
    static_cast<void>(!write(signalPipe[1], &number, sizeof number));
}

} // namespace

void beforeEndingSignals(QObject& owner, std::function<void()> act)
{
    if (pipe2(signalPipe, O_CLOEXEC) != 0)
        return;
    auto* told = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, &owner);
    QObject::connect(told, &QSocketNotifier::activated, &owner, [act = std::move(act)] {
        int number = 0;
        if (read(signalPipe[0], &number, sizeof number) != sizeof number)
            return;
        act();
        std::raise(number);
    });
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction before {};
        struct sigaction ours {};
        ours.sa_handler = tellSignal;
        ours.sa_flags = SA_RESETHAND | SA_RESTART;
        // Whoever started the program may have had it ignore some.
        if (sigaction(number, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            sigaction(number, &ours, nullptr);
    }
}

} // namespace quorrin
