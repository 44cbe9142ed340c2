#include "Objects.h"
#include "Pictures.h"
#include "Windows.h"
#include "app/App.h"
#include "desktop/DesktopPlatform.h"

#include <QApplication>
#include <QTemporaryFile>

#include <cstdio>
#include <exception>
#include <stdexcept>

namespace {

/// A screen that nobody sees, large enough for every window.
class UnseenScreen {
public:
    UnseenScreen()
    {
        if (!configuration_.open())
            throw std::runtime_error("no temporary file can be made");
        configuration_.write(R"({"screens": [{"name": "unseen", "x": 0, "y": 0, "width": 1600, "height": 1200,
                                 "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
        configuration_.flush();
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration_.fileName().toUtf8());
    }

private:
    QTemporaryFile configuration_;
};

} // namespace

/// Makes what the help needs of the program itself: its pictures, from an example map, and a list of all objects.
int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("usage: help-pictures MAP PICTURES OBJECTS\n", stderr);
        return 2;
    }
    try {
        // What an unseen screen cannot do is no news to the build.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        const UnseenScreen screen;
        int qtArguments = 1;
        const QApplication qt(qtArguments, argv);
        QApplication::setCursorFlashTime(0); // else the clock says whether a caret is in a picture
        quorrin::setUpDesktop();
        quorrin::UnattendedApp().Event_Open();
        quorrin::writeHelpPictures(argv[2], argv[1]);
        quorrin::writeWindowPictures(argv[2], argv[1]);
        quorrin::writeObjectList(argv[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "help-pictures: %s\n", error.what());
        return 1;
    }
}
