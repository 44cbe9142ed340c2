#include "desktop/DesktopPlatform.h"

#include "desktop/DesktopStyle.h"
#include "desktop/DesktopWindow.h"
#include "desktop/Dialogs.h"

#include "toolkit/Application.h"
#include "toolkit/QtBridge.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QIcon>
#include <QUrl>

namespace quorrin {

void DesktopPlatform::ShowModal(Window& window)
{
    DesktopWindow dialog(window, frontWidget());
    window.Event_Open();
    dialog.RunModal();
}

bool DesktopPlatform::Launch(const FolderItem& file)
{
    const QFileInfo path(QtBridge::qtPath(file.Path()));
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path.absoluteFilePath()));
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
    QApplication::setDesktopFileName(QStringLiteral("org.quorrin.MapMaker"));
    registerArt();
    QIcon icon;
    for (const auto* name : {"Icon32", "Icon128"})
        if (const auto drawn = Picture::OpenFromApp(name))
            icon.addPixmap(QPixmap::fromImage(QtBridge::drawnImage(*drawn)));
    QApplication::setWindowIcon(icon);
}

} // namespace quorrin
