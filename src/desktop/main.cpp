#include "app/App.h"
#include "app/Recovery.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/DesktopWindow.h"
#include "desktop/Folders.h"
#include "desktop/ForcedEnd.h"
#include "desktop/LastResort.h"
#include "desktop/RecoveryClock.h"
#include "desktop/StartArguments.h"
#include "document/Window1.h"
#include "toolkit/QtBridge.h"

#include <QApplication>
#include <QFileOpenEvent>
#include <QTimer>
#include <QWindow>

namespace {

using namespace quorrin;

/// The map opens as soon as the window can, and its folder is where file dialogs start.
void handOver(App& app, const std::string& path)
{
    const auto file = New<FolderItem>(path);
    rememberFolderOf(*file);
    app.Event_OpenDocument(file);
}

/// Takes the files that the system hands over while the program runs.
class HandedOver : public QObject {
public:
    explicit HandedOver(App& app) : app_(app) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::FileOpen)
            return QObject::eventFilter(watched, event);
        guarded([&] { handOver(app_, QtBridge::plainPath(static_cast<QFileOpenEvent*>(event)->file())); });
        return true;
    }

private:
    App& app_;
};

/// Asks about what crashes have left, once the window stands and nothing else is being asked or told.
class RecoveryOffer : public QTimer {
public:
    RecoveryOffer(const DesktopWindow& view, const Window1& window, Recovery& recovery)
    {
        constexpr std::chrono::milliseconds period(20); // after the timer that opens what was handed over
        callOnTimeout(this, [this, &view, &window, &recovery] {
            if (!view.windowHandle()->isExposed() || QApplication::activeModalWidget()
                || QApplication::activePopupWidget())
                return;
            stop();
            guarded([&] { recovery.OfferAbandoned(); });
            if (window.mySavedFile)
                rememberFolderOf(*window.mySavedFile);
        });
        start(period);
    }
};

} // namespace

int main(int argc, char** argv)
{
    const StartArguments arguments = readArguments(argc, argv);
    if (arguments.status)
        return *arguments.status;
    // Qt gets no argument for itself.
    int qtArguments = 1;
    QApplication qt(qtArguments, argv);
    setUpDesktop();
    DesktopPlatform platform;

    App app;
    guarded([&] { app.Event_Open(); });
    if (!arguments.map.empty())
        handOver(app, arguments.map);
    const HandedOver handedOver(app);
    QApplication::setQuitOnLastWindowClosed(app.AutoQuit);

    Window1 window;
    guarded([&] { window.Event_Open(); });
    Recovery recovery(window);
    const RecoveryClock clock(recovery);
    DesktopWindow view(window);
    const ForcedEnd forcedEnd(window, view, recovery);
    view.Open();
    const RecoveryOffer offer(view, window, recovery);
    const int status = QApplication::exec();
    // The window has closed, and with that the person has said what becomes of the changes.
    recovery.Release();
    return status;
}
