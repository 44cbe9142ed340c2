#include "desktop/DesktopsOwnDialogs.h"

#include "desktop/FileUrls.h"

#include "toolkit/Files.h"
#include "toolkit/Platform.h"
#include "toolkit/QtBridge.h"

#include <QFileDialog>
#include <QLineEdit>

#include <algorithm>

namespace quorrin {

/// Qt builds a dialog of widgets just where the desktop has none.
bool desktopHasFileDialogs()
{
    return !QFileDialog().findChild<QLineEdit*>();
}

bool lacksExtension(const QString& name, const QStringList& extensions)
{
    return !extensions.isEmpty() && std::none_of(extensions.begin(), extensions.end(), [&](const QString& extension) {
        return name.endsWith(extension, Qt::CaseInsensitive);
    });
}

std::optional<QString> chosenForSaving(QFileDialog& dialog, const QStringList& extensions)
{
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedUrls().isEmpty()) {
        const QString path = qtPathOf(dialog.selectedUrls().constFirst());
        if (!lacksExtension(path, extensions))
            return path;
        const QString whole = path + extensions.constFirst();
        const FolderItem file(QtBridge::plainPath(whole));
        if (!file.Exists() || Confirmed(file.Name() + " already exists.\nDo you want to replace it?", "Replace"))
            return whole;
    }
    return {};
}

} // namespace quorrin
