#include "app/App.h"
#include "desktop/DesktopPlatform.h"
#include "desktop/DesktopWindow.h"
#include "desktop/Folders.h"
#include "desktop/LastResort.h"
#include "desktop/StartArguments.h"
#include "document/Window1.h"
#include "toolkit/QtBridge.h"

#include <QApplication>
#include <QFileOpenEvent>

namespace {

using namespace quorrin;

/// The map opens as soon as the window can, and its folder is where file dialogs start.
void handOver(App& app, const std::string& path)
{
    const auto file = New<FolderItem>(path);
    const QString qtPath = QtBridge::qtPath(path);
    rememberFolder(kindOfFile(qtPath), qtPath);
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
    DesktopWindow view(window);
    view.Open();
    return QApplication::exec();
}
