#include "desktop/ForcedEnd.h"

#include "app/Recovery.h"
#include "desktop/EndingSignals.h"
#include "desktop/LastResort.h"
#include "document/Window1.h"

#include <QApplication>
#include <QSemaphore>
#include <QSessionManager>
#include <QThread>
#include <QWidget>

#include <cstdlib>
#include <memory>

namespace quorrin {

namespace {

Recovery* theRecovery = nullptr;
QtMessageHandler handlerBefore = nullptr;

void keepHere()
{
    if (theRecovery)
        theRecovery->KeepAtOnce();
}

/// From whatever thread the end comes. The main one has the map, and may itself wait for what will never come.
void keepAtOnce()
{
    if (!theRecovery)
        return;
    if (QThread::currentThread() == qApp->thread())
        return keepHere();
    const auto kept = std::make_shared<QSemaphore>();
    QMetaObject::invokeMethod(
        qApp,
        [kept] {
            keepHere();
            kept->release();
        },
        Qt::QueuedConnection);
    constexpr int longest = 10000;
    kept->tryAcquire(1, longest);
}

/// Qt ends the process at once when the Wayland compositor goes, and this is all that it says before.
void keepWhenWaylandGoes(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(QLatin1String("The Wayland connection")))
        keepAtOnce();
    handlerBefore(type, context, message);
}

} // namespace

ForcedEnd::ForcedEnd(Window1& window, const QWidget& view, Recovery& recovery)
    : window_(window), view_(view), recovery_(recovery)
{
    theRecovery = &recovery;
    beforeEndingSignals(*this, [this] { recovery_.KeepAtOnce(); });
    // That is how Qt ends when the X server goes.
    std::atexit(keepAtOnce);
    handlerBefore = qInstallMessageHandler(keepWhenWaylandGoes);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &ForcedEnd::answer, Qt::DirectConnection);
    // Without the options that Qt adds, which the program does not know.
    connect(
        qApp, &QGuiApplication::saveStateRequest, this,
        [](QSessionManager& manager) { manager.setRestartCommand({QCoreApplication::applicationFilePath()}); },
        Qt::DirectConnection);
    qApp->installEventFilter(this);
}

ForcedEnd::~ForcedEnd()
{
    qInstallMessageHandler(handlerBefore);
    theRecovery = nullptr;
}

/// Asks as if the window closed. Without leave to ask, or while something is being edited, the copy has to do.
void ForcedEnd::answer(QSessionManager& manager)
{
    if (window_.isDirty && manager.allowsInteraction()) {
        bool stays = true;
        guarded([&] { stays = window_.Event_CancelClose(true); });
        if (stays)
            return manager.cancel();
        manager.release();
        recovery_.Release();
    }
    recovery_.KeepAtOnce();
}

/// Comes when the session ends, and when the window has closed; the one is forced, the other is not.
bool ForcedEnd::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::Quit || !view_.isVisible())
        return false;
    recovery_.KeepAtOnce();
    std::_Exit(EXIT_SUCCESS);
}

} // namespace quorrin
