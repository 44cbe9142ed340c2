#include "toolkit/Application.h"

#include <QGuiApplication>

#include <cstdio>

namespace quorrin {

namespace {

/// A machine without a session has no runtime folder, and a program without a screen needs none.
void tellWarning(QtMsgType, const QMessageLogContext&, const QString& message)
{
    if (!message.contains("XDG_RUNTIME_DIR"))
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
    qInstallMessageHandler(tellWarning);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    impl_ = std::make_unique<Impl>(argc, argv);
    registerArt();
}

ScreenlessToolkit::~ScreenlessToolkit() = default;

} // namespace quorrin
