#include "desktop/AnyFileName.h"

#include "toolkit/QtBridge.h"

#include <QtGlobal>

// The classes are private to Qt and differ between its versions; the dialogs of others do without these names.
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)

#include <private/qfsfileengine_p.h>

#include <QDateTime>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <vector>

namespace quorrin {

namespace fs = std::filesystem;

namespace {

template <typename Action>
bool succeeds(Action action)
{
    std::error_code failure;
    action(failure);
    return !failure;
}

/// What lies in a folder, with the two names that every folder has.
class Listing : public QAbstractFileEngineIterator {
public:
    Listing(const std::string& folder, QDir::Filters filters, const QStringList& nameFilters)
        : QAbstractFileEngineIterator(filters, nameFilters), names_{QStringLiteral("."), QStringLiteral("..")}
    {
        std::error_code failure;
        for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end; entry.increment(failure))
            names_.push_back(QtBridge::qtPath(entry->path().filename().string()));
    }
    bool hasNext() const override { return next_ < names_.size(); }
    QString next() override
    {
        ++next_;
        return currentFilePath();
    }
    QString currentFileName() const override { return names_.at(next_ - 1); }

private:
    std::vector<QString> names_;
    std::size_t next_ = 0;
};

/// What Qt can find, but for names in folders.
class KnownFile : public QFSFileEngine {
public:
    using QFSFileEngine::QFSFileEngine;

    Iterator* beginEntryList(QDir::Filters filters, const QStringList& nameFilters) override
    {
        return new Listing(path(), filters, nameFilters);
    }

protected:
    std::string path() const { return QtBridge::plainPath(fileName(DefaultName)); }
};

/// What Qt would look for under another name.
class MarkedFile : public KnownFile {
public:
    using KnownFile::KnownFile;

    FileFlags fileFlags(FileFlags wanted) const override;
    QString fileName(FileName kind) const override;
    qint64 size() const override { return state().st_size; }
    QDateTime fileTime(FileTime time) const override
    {
        const struct stat now = state();
        return QDateTime::fromSecsSinceEpoch(time == AccessTime           ? now.st_atime
                                             : time == MetadataChangeTime ? now.st_ctime
                                                                          : now.st_mtime);
    }

    bool open(QIODevice::OpenMode mode, std::optional<QFile::Permissions>) override;
    bool rename(const QString& newPath) override
    {
        return succeeds([&](auto& failure) { fs::rename(path(), QtBridge::plainPath(newPath), failure); });
    }
    bool remove() override
    {
        return succeeds([&](auto& failure) { fs::remove(path(), failure); });
    }
    bool mkdir(const QString& folder, bool, std::optional<QFile::Permissions>) const override
    {
        return succeeds([&](auto& failure) { fs::create_directories(QtBridge::plainPath(folder), failure); });
    }
    bool rmdir(const QString& folder, bool) const override
    {
        return succeeds([&](auto& failure) { fs::remove(QtBridge::plainPath(folder), failure); });
    }

private:
    /// Zero where there is nothing.
    struct stat state() const
    {
        struct stat found {};
        stat(path().c_str(), &found);
        return found;
    }
};

QAbstractFileEngine::FileFlags MarkedFile::fileFlags(FileFlags) const
{
    const std::string file = path();
    const struct stat found = state();
    std::error_code ignored;
    FileFlags flags;
    flags.setFlag(LinkType, fs::is_symlink(file, ignored));
    if (found.st_mode == 0)
        return flags;
    flags |= ExistsFlag | LocalDiskFlag;
    flags.setFlag(FileType, S_ISREG(found.st_mode));
    flags.setFlag(DirectoryType, S_ISDIR(found.st_mode));
    flags.setFlag(HiddenFlag, fs::path(file).filename().string().starts_with('.'));
    flags.setFlag(ReadUserPerm, access(file.c_str(), R_OK) == 0);
    flags.setFlag(WriteUserPerm, access(file.c_str(), W_OK) == 0);
    flags.setFlag(ExeUserPerm, access(file.c_str(), X_OK) == 0);
    // Qt's flags have four bits for what the mode has three, and the user between owner and group.
    const auto mode = found.st_mode;
    return flags | FileFlags(static_cast<int>((mode & 0700) << 6 | (mode & 0070) << 1 | (mode & 0007)));
}

QString MarkedFile::fileName(FileName kind) const
{
    const auto text = [](const fs::path& found) { return QtBridge::qtPath(found.string()); };
    std::error_code ignored;
    switch (kind) {
    case AbsoluteLinkTarget:
        if (const auto target = fs::read_symlink(path(), ignored); !target.empty())
            return text(fs::path(path()).parent_path() / target);
        return {};
    case CanonicalName:
        return text(fs::canonical(path(), ignored));
    case CanonicalPathName:
        return text(fs::canonical(path(), ignored).parent_path());
    default:
        return KnownFile::fileName(kind);
    }
}

bool MarkedFile::open(QIODevice::OpenMode mode, std::optional<QFile::Permissions>)
{
    mode = processOpenModeFlags(mode).openMode;
    const bool reads = mode.testFlag(QIODevice::ReadOnly);
    const bool writes = mode.testFlag(QIODevice::WriteOnly);
    const int flags = (reads && writes ? O_RDWR
                       : writes        ? O_WRONLY
                                       : O_RDONLY)
                      | (writes && !mode.testFlag(QIODevice::ExistingOnly) ? O_CREAT : 0)
                      | (mode.testFlag(QIODevice::NewOnly) ? O_EXCL : 0)
                      | (mode.testFlag(QIODevice::Truncate) ? O_TRUNC : 0)
                      | (mode.testFlag(QIODevice::Append) ? O_APPEND : 0);
    const int handle = ::open(path().c_str(), flags | O_CLOEXEC, 0666);
    return handle >= 0 && QFSFileEngine::open(mode, handle, QFile::AutoCloseHandle);
}

class AnyFileName : public QAbstractFileEngineHandler {
    QAbstractFileEngine* create(const QString& path) const override
    {
        std::error_code ignored;
        if (!path.startsWith('/'))
            return nullptr;
        if (QtBridge::isMarkedPath(path))
            return new MarkedFile(path);
        return fs::is_directory(path.toStdString(), ignored) ? new KnownFile(path) : nullptr;
    }
};

} // namespace

void allowAnyFileName()
{
    static const AnyFileName handler;
}

} // namespace quorrin

#else

void quorrin::allowAnyFileName()
{}

#endif
