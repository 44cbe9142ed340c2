#include "desktop/DesktopsOwnDialogs.h"

#include "toolkit/Platform.h"

#include <QFileDialog>
#include <QFileInfo>
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
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const QString path = dialog.selectedFiles().constFirst();
        if (!lacksExtension(path, extensions))
            return path;
        const QFileInfo file(path + extensions.constFirst());
        if (!file.exists()
            || Confirmed(file.fileName().toStdString() + " already exists.\nDo you want to replace it?", "Replace"))
            return file.filePath();
    }
    return {};
}

} // namespace quorrin
