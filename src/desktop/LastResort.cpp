#include "desktop/LastResort.h"

#include "toolkit/Platform.h"

#include <QApplication>

#include <exception>
#include <string>

namespace quorrin {

namespace {
bool showing = false;
}

bool guarded(const std::function<void()>& handler, bool tells) noexcept
{
    try {
        handler();
        return true;
    } catch (const std::exception& exception) {
        if (tells)
            reportFault(exception.what());
    } catch (...) {
        if (tells)
            reportFault("Something went wrong. Your map is still open; save it under a new name to be safe.");
    }
    return false;
}

void reportFault(const char* what)
{
    const auto show = [message = std::string(what)] {
        if (showing)
            return;
        showing = true;
        platform().MsgBox("The last action could not be completed. Your map is still open, as it was.\n\n" + message);
        showing = false;
    };
    QMetaObject::invokeMethod(qApp, show, Qt::QueuedConnection);
}

} // namespace quorrin
