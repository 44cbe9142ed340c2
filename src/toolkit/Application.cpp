#include "toolkit/Application.h"

#include <QGuiApplication>

#include <cstdio>

namespace quorrin {

namespace {

/// What Qt remarks on pictures and on the machine, which nobody at a terminal can do anything about, is dropped.
void tellFailure(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

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
    qInstallMessageHandler(tellFailure);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    impl_ = std::make_unique<Impl>(argc, argv);
    registerArt();
}

ScreenlessToolkit::~ScreenlessToolkit() = default;

} // namespace quorrin
