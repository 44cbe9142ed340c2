#include "desktop/DesktopPlatform.h"

#include "desktop/DesktopStyle.h"
#include "desktop/DesktopWindow.h"
#include "desktop/Dialogs.h"
#include "desktop/MenuViews.h"

#include "toolkit/Application.h"
#include "toolkit/Graphics.h"
#include "toolkit/QtBridge.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QUrl>

namespace quorrin {

MessageDialog::Answer DesktopPlatform::Ask(const MessageDialog& dialog)
{
    return askPerson(dialog);
}

void DesktopPlatform::MsgBox(const std::string& message)
{
    showMessage(message);
}

bool DesktopPlatform::SelectColor(Color& color, const std::string& prompt)
{
    return selectColor(color, prompt);
}

Ref<FolderItem> DesktopPlatform::GetOpenFolderItem(const FileFilter& filter)
{
    return openFileDialog(filter);
}

Ref<FolderItem> DesktopPlatform::GetSaveFolderItem(const FileFilter& filter, const std::string& defaultName)
{
    return saveFileDialog(filter, defaultName);
}

Ref<MenuItem> DesktopPlatform::PopUp(const MenuItem& base)
{
    return popUp(base);
}

void DesktopPlatform::ShowModal(Window& window)
{
    DesktopWindow dialog(window, frontWidget());
    window.Event_Open();
    dialog.RunModal();
}

bool DesktopPlatform::PageSetupDialog(PrinterSetup& setup)
{
    return pageSetupDialog(setup);
}

std::unique_ptr<Graphics> DesktopPlatform::OpenPrinterDialog(const PrinterSetup& setup, Window& parent)
{
    return printerDialog(setup, parent.Title);
}

bool DesktopPlatform::Launch(const FolderItem& file)
{
    const QFileInfo path(QFile::decodeName(QByteArray::fromStdString(file.Path())));
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
    if (const auto icon = Picture::OpenFromApp("Icon128"))
        QApplication::setWindowIcon(QIcon(QPixmap::fromImage(QtBridge::drawnImage(*icon))));
}

} // namespace quorrin
