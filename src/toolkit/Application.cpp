#include "toolkit/Application.h"

#include <QDir>
#include <QGuiApplication>

// Outside every namespace, as Qt wants it.
static void initialiseArtResource()
{
    Q_INIT_RESOURCE(art);
}

namespace quorrin {

std::string Application::Version()
{
    return QUORRIN_VERSION;
}

struct ScreenlessToolkit::Impl {
    Impl(int& argc, char** argv) : application(argc, argv) {}
    QGuiApplication application;
};

ScreenlessToolkit::ScreenlessToolkit(int& argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    impl_ = new Impl(argc, argv);
    registerArt();
}

ScreenlessToolkit::~ScreenlessToolkit()
{
    delete impl_;
}

void registerArt()
{
    initialiseArtResource();
}

} // namespace quorrin
