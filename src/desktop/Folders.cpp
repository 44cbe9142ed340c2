#include "desktop/Folders.h"

#include "desktop/QtText.h"

#include "app/iniClass.h"
#include "document/FileTypes1.h"
#include "toolkit/QtBridge.h"

#include <QDir>
#include <QStandardPaths>

#include <cstdlib>
#include <filesystem>

namespace quorrin {

namespace {

constexpr auto section = "Folders";

/// The folder of the last file of this run.
std::string& lastFolder()
{
    static std::string folder;
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

std::string rememberedFolder(FileKind kind)
{
    std::string path;
    remembered().GetPreference(section, keyOf(kind), path);
    return path;
}

bool isFolder(const std::string& path)
{
    std::error_code ignored;
    return std::filesystem::is_directory(path, ignored);
}

} // namespace

FileKind kindOfFile(const QString& nameOrFilter)
{
    const QString extension = qtText(FileTypes1::QuorrinMap.Extensions);
    return nameOrFilter.contains(extension, Qt::CaseInsensitive) ? FileKind::Map : FileKind::Picture;
}

std::string startFolder(FileKind kind)
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    for (const auto& folder : {rememberedFolder(kind), lastFolder(), QtBridge::plainPath(documents)})
        if (isFolder(folder))
            return folder;
    const char* home = std::getenv("HOME");
    return home ? home : QtBridge::plainPath(QDir::homePath());
}

void rememberFolder(FileKind kind, const FolderItem& file)
{
    std::error_code ignored;
    const auto folder = std::filesystem::absolute(file.Path(), ignored).lexically_normal().parent_path().string();
    lastFolder() = folder;
    // The file of the folders has lines.
    if (folder == rememberedFolder(kind) || folder.find('\r') != folder.npos || !isFolder(folder))
        return;
    SpecialFolder::State()->CreateAsFolder();
    remembered().SetPreference(section, keyOf(kind), folder);
}

void rememberFolderOf(const FolderItem& file)
{
    rememberFolder(kindOfFile(QtBridge::qtPath(file.Path())), file);
}

} // namespace quorrin
