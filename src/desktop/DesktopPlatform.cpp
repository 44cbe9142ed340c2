#include "desktop/DesktopPlatform.h"

#include "desktop/AnyFileName.h"
#include "desktop/DesktopStyle.h"
#include "desktop/DesktopWindow.h"
#include "desktop/Dialogs.h"
#include "desktop/FileUrls.h"

#include "toolkit/Application.h"
#include "toolkit/QtBridge.h"

#include <QApplication>
#include <QDesktopServices>
#include <QIcon>
#include <QProcess>
#include <QStandardPaths>

namespace quorrin {

namespace {

/// Qt starts the desktop's opener without waiting for its answer, so it cannot tell that there is no browser. The
/// opener fails at once then; where it has become the browser itself, it runs on.
bool runOpener(const QString& opener, const QUrl& url)
{
    constexpr int timeToFail = 2000; // milliseconds
    auto* process = new QProcess;    // outlives this function, and the program where it has to
    process->setStandardInputFile(QProcess::nullDevice());
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->start(opener, {url.toString(QUrl::FullyEncoded)});
    if (process->waitForStarted() && !process->waitForFinished(timeToFail))
        return true;
    return process->error() != QProcess::FailedToStart && process->exitStatus() == QProcess::NormalExit
           && process->exitCode() == 0;
}

} // namespace

void DesktopPlatform::ShowModal(Window& window)
{
    DesktopWindow dialog(window, frontWidget());
    window.Event_Open();
    dialog.RunModal();
}

bool DesktopPlatform::Launch(const FolderItem& file)
{
    const QUrl url = urlOf(file.Path());
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    return opener.isEmpty() ? QDesktopServices::openUrl(url) : runOpener(opener, url);
}

bool DesktopPlatform::AsyncShiftKey() const
{
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

bool DesktopPlatform::AsyncControlKey() const
{
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ControlModifier);
}

void setUpDesktop()
{
    QApplication::setStyle(new DesktopStyle);
    QApplication::setApplicationName(QStringLiteral("Quorrin Map Maker"));
    QApplication::setApplicationVersion(QString::fromStdString(Application::Version()));
    QApplication::setDesktopFileName(QStringLiteral("org.quorrin.mapmaker"));
    registerArt();
    allowAnyFileName();
    QIcon icon;
    for (const auto* name : {"Icon32", "Icon128"})
        if (const auto drawn = Picture::OpenFromApp(name))
            icon.addPixmap(QPixmap::fromImage(QtBridge::drawnImage(*drawn)));
    QApplication::setWindowIcon(icon);
}

} // namespace quorrin
