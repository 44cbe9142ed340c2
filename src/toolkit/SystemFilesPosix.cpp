#include "toolkit/SystemFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace quorrin {

namespace {

std::error_code lastError()
{
    return {errno, std::system_category()};
}

std::error_code errorOf(int result)
{
    return result == 0 ? std::error_code() : lastError();
}

int flagsOf(SystemFile::Opening opening)
{
    switch (opening) {
    case SystemFile::Opening::ToRead:
        return O_RDONLY;
    case SystemFile::Opening::ToWrite:
        return O_WRONLY;
    case SystemFile::Opening::AsNew:
        return O_WRONLY | O_CREAT | O_EXCL;
    case SystemFile::Opening::AsPrivate:
        return O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW;
    }
    return O_RDONLY;
}

constexpr mode_t forAll = 0666;
constexpr mode_t forUser = 0600;
constexpr mode_t folderForUser = 0700;

std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The folder that a variable names, else the one in the home folder.
std::string userFolder(const char* name, const char* inHome)
{
    const auto folder = variable(name);
    return folder.starts_with('/') ? folder : variable("HOME") + inHome;
}

} // namespace

SystemFile::SystemFile(const std::string& path, Opening opening, std::error_code& error)
    : handle_(open(path.c_str(), flagsOf(opening) | O_CLOEXEC, opening == Opening::AsPrivate ? forUser : forAll))
{
    error = IsOpen() ? std::error_code() : lastError();
}

SystemFile SystemFile::Locked(const std::string& path, bool isNew, std::error_code& error)
{
    constexpr int flags = O_CLOEXEC | O_NOFOLLOW;
    // Network file systems lock only what is open for writing.
    SystemFile file(open(path.c_str(), O_RDWR | flags | (isNew ? O_CREAT | O_EXCL : 0), forUser));
    if (!file.IsOpen() && (errno == EACCES || errno == EROFS))
        file = SystemFile(open(path.c_str(), O_RDONLY | flags));
    const bool isLocked = file.IsOpen() && flock(static_cast<int>(file.handle_), LOCK_EX | LOCK_NB) == 0;
    error = isLocked ? std::error_code() : lastError();
    return isLocked ? std::move(file) : SystemFile();
}

SystemFile::~SystemFile()
{
    if (IsOpen())
        close(static_cast<int>(handle_));
}

std::error_code SystemFile::Read(std::string& bytes) const
{
    std::size_t length = 0;
    while (length < bytes.size()) {
        const auto got = read(static_cast<int>(handle_), bytes.data() + length, bytes.size() - length);
        if (got == 0)
            break;
        if (got < 0 && errno != EINTR)
            return lastError();
        length += static_cast<std::size_t>(std::max<ssize_t>(got, 0));
    }
    bytes.resize(length);
    return {};
}

std::error_code SystemFile::Write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const auto written = write(static_cast<int>(handle_), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return lastError();
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return {};
}

std::error_code SystemFile::Sync() const
{
    return errorOf(fsync(static_cast<int>(handle_)));
}

std::error_code SystemFile::SetSize(std::uint64_t size) const
{
    return errorOf(ftruncate(static_cast<int>(handle_), static_cast<off_t>(size)));
}

std::error_code SystemFile::MakeRoom(std::uint64_t size) const
{
    return {posix_fallocate(static_cast<int>(handle_), 0, static_cast<off_t>(size)), std::system_category()};
}

void SystemFile::TakeOwnerAndPermissionsOf(const std::string& path) const
{
    struct stat other {};
    if (stat(path.c_str(), &other) != 0)
        return;
    // Only the administrator can leave a file to somebody else.
    static_cast<void>(!fchown(static_cast<int>(handle_), other.st_uid, other.st_gid));
    fchmod(static_cast<int>(handle_), other.st_mode & 07777);
}

bool isNoRoom(std::error_code error)
{
    return error == std::errc::no_space_on_device || error.value() == EDQUOT;
}

std::error_code obstacleToWriting(const std::string& path)
{
    return errorOf(access(path.c_str(), W_OK));
}

void syncFolder(const std::string& path)
{
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    fsync(folder);
    close(folder);
}

std::error_code makePrivateFolder(const std::string& path)
{
    return errorOf(mkdir(path.c_str(), folderForUser));
}

std::string makeUnusedPrivateFolder(const std::string& path, std::error_code& error)
{
    auto folder = path + "XXXXXX";
    error = mkdtemp(folder.data()) ? std::error_code() : lastError();
    return folder;
}

std::string userDataFolder()
{
    return userFolder("XDG_DATA_HOME", "/.local/share");
}

std::string userStateFolder()
{
    return userFolder("XDG_STATE_HOME", "/.local/state");
}

} // namespace quorrin
