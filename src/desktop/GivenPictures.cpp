#include "desktop/GivenPictures.h"

#include "desktop/FileUrls.h"
#include "desktop/LastResort.h"

#include "toolkit/Files.h"
#include "toolkit/QtBridge.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>

#include <algorithm>
#include <array>

namespace quorrin {

namespace {

/// The kinds of picture that open dialogs offer, as other programs hand them over; the first is the one that all know.
const std::array pictureFormats{QStringLiteral("image/png"), QStringLiteral("image/jpeg"), QStringLiteral("image/bmp")};

/// The first file that was handed over; empty when there is none on this machine.
QString fileIn(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    return urls.isEmpty() ? QString() : qtPathOf(urls.constFirst());
}

QString pictureFormatIn(const QMimeData& data)
{
    const auto found = std::find_if(pictureFormats.begin(), pictureFormats.end(),
                                    [&](const QString& format) { return data.hasFormat(format); });
    return found == pictureFormats.end() ? QString() : *found;
}

/// Whether there is a file or a picture; whether it can be read shows when it is taken.
bool bringsPicture(const QMimeData* data)
{
    return data && (!fileIn(*data).isEmpty() || !pictureFormatIn(*data).isEmpty());
}

std::optional<std::string> pictureIn(const QMimeData& data)
{
    const QString file = fileIn(data);
    return file.isEmpty() ? data.data(pictureFormatIn(data)).toStdString()
                          : readFile(New<FolderItem>(QtBridge::plainPath(file)));
}

void give(Window& window, const std::optional<std::string>& bytes)
{
    guarded([&] { window.Event_TakePicture(bytes); });
}

} // namespace

bool canPastePicture(const Window& window)
{
    return window.TakesPictures && bringsPicture(QApplication::clipboard()->mimeData());
}

void pastePicture(Window& window)
{
    if (canPastePicture(window))
        give(window, pictureIn(*QApplication::clipboard()->mimeData()));
}

/// The fields get their events here, too: they would take the path of a file as a text.
PictureTaker::PictureTaker(Window& window, QWidget& widget) : QObject(&widget), window_(window)
{
    if (!window.TakesPictures)
        return;
    widget.setAcceptDrops(true);
    widget.installEventFilter(this);
    for (auto* field : widget.findChildren<QLineEdit*>())
        field->installEventFilter(this);
}

bool PictureTaker::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        if (!bringsPicture(drop->mimeData()))
            break;
        // Never a move, after which a file manager would delete the file.
        drop->setDropAction(Qt::CopyAction);
        drop->accept();
        // The program from which it comes waits for the end of the drop, so a message must come after that.
        if (event->type() == QEvent::Drop)
            QMetaObject::invokeMethod(
                this, [this, bytes = pictureIn(*drop->mimeData())] { give(window_, bytes); }, Qt::QueuedConnection);
        return true;
    }
    case QEvent::KeyPress:
        if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste) || !canPastePicture(window_))
            break;
        pastePicture(window_);
        return true;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace quorrin
