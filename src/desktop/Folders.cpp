#include "desktop/Folders.h"

#include "app/iniClass.h"
#include "toolkit/QtBridge.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace quorrin {

namespace {

constexpr auto section = "Folders";

/// The folder of the last file of this run.
QString& lastFolder()
{
    static QString folder;
    return folder;
}

iniClass remembered()
{
    return iniClass(SpecialFolder::State()->Child("folders.ini"));
}

std::string keyOf(FileKind kind)
{
    return kind == FileKind::Map ? "Maps" : "Pictures";
}

QString rememberedFolder(FileKind kind)
{
    std::string path;
    remembered().GetPreference(section, keyOf(kind), path);
    return QtBridge::qtPath(path);
}

} // namespace

FileKind kindOfFile(const QString& nameOrFilter)
{
    return nameOrFilter.contains(QLatin1String(".qrnm"), Qt::CaseInsensitive) ? FileKind::Map : FileKind::Picture;
}

QString startFolder(FileKind kind)
{
    for (const QString& folder :
         {rememberedFolder(kind), lastFolder(), QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)})
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return folder;
    return QDir::homePath();
}

void rememberFolder(FileKind kind, const QString& file)
{
    const QString folder = QFileInfo(file).absolutePath();
    lastFolder() = folder;
    // The file of the folders has lines.
    if (folder == rememberedFolder(kind) || folder.contains('\r') || !QFileInfo(folder).isDir())
        return;
    SpecialFolder::State()->CreateAsFolder();
    remembered().SetPreference(section, keyOf(kind), QtBridge::plainPath(folder));
}

void rememberFolderOf(const FolderItem& file)
{
    const QString path = QtBridge::qtPath(file.Path());
    rememberFolder(kindOfFile(path), path);
}

} // namespace quorrin
