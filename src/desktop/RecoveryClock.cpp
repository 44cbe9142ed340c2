#include "desktop/RecoveryClock.h"

#include "app/Recovery.h"

#include <QApplication>
#include <QMouseEvent>

namespace quorrin {

namespace {

bool isBeginOfInput(QEvent::Type type)
{
    return type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
}

bool isInput(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyRelease:
    case QEvent::MouseButtonRelease:
    case QEvent::InputMethod:
    case QEvent::Wheel:
    case QEvent::Drop:
        return true;
    case QEvent::MouseMove:
        return static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
    default:
        return isBeginOfInput(event.type());
    }
}

} // namespace

RecoveryClock::RecoveryClock(Recovery& recovery, std::chrono::milliseconds quiet, std::chrono::milliseconds latest)
    : recovery_(recovery)
{
    for (const auto& [timer, period] : {std::pair{&quiet_, quiet}, {&latest_, latest}}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
        timer->setInterval(period);
        timer->callOnTimeout(this, &RecoveryClock::due);
    }
    recovery_.Changed = [this] { happened(); };
    qApp->installEventFilter(this);
}

RecoveryClock::~RecoveryClock()
{
    recovery_.Changed = nullptr;
}

bool RecoveryClock::eventFilter(QObject*, QEvent* event)
{
    if (isInput(*event))
        happened();
    if (isBeginOfInput(event->type()))
        recovery_.Resume();
    return false;
}

void RecoveryClock::happened()
{
    quiet_.start();
    if (!latest_.isActive())
        latest_.start();
}

void RecoveryClock::due()
{
    quiet_.stop();
    latest_.stop();
    if (recovery_.Keep())
        latest_.start();
}

} // namespace quorrin
