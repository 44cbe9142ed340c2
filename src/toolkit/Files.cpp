#include "toolkit/Files.h"

#include "toolkit/QtBridge.h"
#include "toolkit/RecoveryCopy.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <random>
#include <system_error>

// Paths are bytes, and not all of them are UTF-8; so files are worked on by the system's own calls.

namespace quorrin {

namespace fs = std::filesystem;

namespace {

/// Beyond anything that the program reads; a larger file would only take the memory away.
constexpr off_t largestFile = 256 << 20;

std::string textOf(int error)
{
    return std::generic_category().message(error);
}

/// An open file of the system.
class Handle {
public:
    Handle() = default;
    Handle(const std::string& path, int flags, mode_t mode = 0) : number_(open(path.c_str(), flags | O_CLOEXEC, mode))
    {}
    Handle(Handle&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Handle& operator=(Handle&& other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Handle()
    {
        if (number_ >= 0)
            close(number_);
    }
    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

private:
    int number_ = -1;
};

/// False, and errno says why, when not all could be written.
bool writeAll(const Handle& file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const auto written = write(file.number(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return true;
}

bool isFolder(const std::string& path)
{
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

std::string folderOf(const std::string& path)
{
    const auto folder = fs::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

/// Where a path leads; the last link need not lead to anything.
std::string linkTarget(fs::path path)
{
    std::error_code failure;
    for (int links = 0; links < 40 && fs::is_symlink(path, failure); ++links)
        path = path.parent_path() / fs::read_symlink(path, failure);
    return path.string();
}

std::string unusedName()
{
    char name[32];
    std::snprintf(name, sizeof name, ".quorrin-%08x%08x", std::random_device()(), std::random_device()());
    return name;
}

/// The folder that the variable names, else that in the home folder.
std::string userFolder(const char* variable, const char* inHome)
{
    const char* folder = std::getenv(variable);
    if (folder && *folder == '/')
        return folder;
    const char* home = std::getenv("HOME");
    return std::string(home ? home : "") + inHome;
}

bool isNoRoom(int error)
{
    return error == ENOSPC || error == EDQUOT;
}

} // namespace

std::string FolderItem::Name() const
{
    return fs::path(path_).filename().string();
}

bool FolderItem::Exists() const
{
    std::error_code ignored;
    return fs::exists(path_, ignored);
}

Ref<FolderItem> FolderItem::Child(std::string_view name) const
{
    return New<FolderItem>(path_ + "/" + std::string(name));
}

void FolderItem::CreateAsFolder() const
{
    std::error_code ignored;
    fs::create_directories(path_, ignored);
}

struct TextInputStream::Impl {
    Handle file;
    std::size_t size;
};

TextInputStream::TextInputStream(std::unique_ptr<Impl> impl) : impl_(std::move(impl))
{}

TextInputStream::~TextInputStream() = default;

Ref<TextInputStream> TextInputStream::Open(const Ref<FolderItem>& file)
{
    struct stat state {};
    if (!file || stat(file->Path().c_str(), &state) != 0 || !S_ISREG(state.st_mode))
        return nullptr;
    if (state.st_size > largestFile)
        throw IOException("The file is too large.");
    Handle handle(file->Path(), O_RDONLY);
    if (!handle.isOpen())
        return nullptr;
    return New<TextInputStream>(
        std::make_unique<Impl>(Impl{std::move(handle), static_cast<std::size_t>(state.st_size)}));
}

std::string TextInputStream::ReadAll()
{
    std::string bytes(impl_->size, '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        const auto got = read(impl_->file.number(), bytes.data() + length, bytes.size() - length);
        if (got == 0)
            break;
        if (got < 0 && errno != EINTR)
            throw IOException("The file cannot be read: " + textOf(errno));
        length += static_cast<std::size_t>(std::max<ssize_t>(got, 0));
    }
    bytes.resize(length);
    return bytes;
}

std::optional<std::string> readFile(const Ref<FolderItem>& file)
try {
    const auto stream = TextInputStream::Open(file);
    return stream ? std::optional(stream->ReadAll()) : std::nullopt;
} catch (const IOException&) {
    return {};
}

struct TextOutputStream::Impl {
    /// Links followed.
    std::string path;
    /// The file beside it that takes its place; empty when it is written in place.
    std::string part;
    Handle file;
    std::string content;

    ~Impl()
    {
        if (!part.empty())
            unlink(part.c_str());
    }

    [[noreturn]] void fail(int error, const std::string& more = {}) const
    {
        throw IOException("The file \"" + FolderItem(path).Name() + "\" cannot be written: " + textOf(error) + more);
    }

    bool open(std::string& obstacle);
    bool replace();
    std::unique_ptr<RecoveryCopy> recoveryCopy() const;
    void writeInPlace() const;
};

bool TextOutputStream::Impl::open(std::string& obstacle)
{
    const auto name = FolderItem(path).Name();
    const auto folder = folderOf(path);
    struct stat state {};
    const bool exists = stat(path.c_str(), &state) == 0;
    if (!isFolder(folder)) {
        obstacle = "There is no folder \"" + folder + "\".";
    } else if (exists && !S_ISREG(state.st_mode)) {
        obstacle = "\"" + name + "\" is not a file that can be replaced.";
    } else if (exists && access(path.c_str(), W_OK) != 0) {
        obstacle = "The file \"" + name + "\" cannot be replaced: " + textOf(errno);
    } else {
        part = folder + "/" + unusedName();
        file = Handle(part, O_WRONLY | O_CREAT | O_EXCL, 0666);
        if (file.isOpen())
            return true;
        part.clear();
        if (isNoRoom(errno))
            fail(errno);
        if (exists)
            return true;
        obstacle = "The folder \"" + folder + "\" cannot be written to: " + textOf(errno);
    }
    return false;
}

/// False when the folder lets no other file take this one's place.
bool TextOutputStream::Impl::replace()
{
    // Closing alone does not notice that the disk took only a part.
    if (!writeAll(file, content) || fsync(file.number()) != 0)
        fail(errno);
    struct stat old {};
    const bool exists = stat(path.c_str(), &old) == 0;
    if (exists) {
        // Only the administrator can leave a file to somebody else.
        if (fchown(file.number(), old.st_uid, old.st_gid) != 0)
            errno = 0;
        fchmod(file.number(), old.st_mode & 07777);
    }
    if (rename(part.c_str(), path.c_str()) != 0) {
        if (exists && (errno == EACCES || errno == EPERM || errno == EBUSY))
            return false;
        fail(errno);
    }
    part.clear();
    const Handle folder(folderOf(path), O_RDONLY | O_DIRECTORY);
    if (folder.isOpen())
        fsync(folder.number());
    return true;
}

std::unique_ptr<RecoveryCopy> TextOutputStream::Impl::recoveryCopy() const
{
    auto copy = RecoveryCopy::Create();
    try {
        copy->Write({FolderItem(path).Name(), fs::absolute(path).string(), std::time(nullptr)},
                    [this](const RecoveryCopy::Sink& take) { take(content); });
    } catch (const IOException&) {
        copy->Remove();
        throw;
    }
    return copy;
}

void TextOutputStream::Impl::writeInPlace() const
{
    const auto copy = recoveryCopy();
    const auto size = static_cast<off_t>(content.size());
    const Handle target(path, O_WRONLY);
    struct stat old {};
    if (!target.isOpen() || fstat(target.number(), &old) != 0) {
        const int error = errno;
        copy->Remove();
        fail(error);
    }
    // Room is made first, so that a full disk leaves the old content whole.
    if (const int error = size > old.st_size ? posix_fallocate(target.number(), 0, size) : 0;
        isNoRoom(error) || error == EFBIG) {
        static_cast<void>(!ftruncate(target.number(), old.st_size));
        copy->Remove();
        fail(error);
    }
    if (!writeAll(target, content) || ftruncate(target.number(), size) != 0 || fsync(target.number()) != 0)
        fail(errno, ". A whole copy is kept in \"" + copy->Path() + "\".");
    copy->Remove();
}

TextOutputStream::TextOutputStream(std::unique_ptr<Impl> impl) : impl_(std::move(impl))
{}

TextOutputStream::~TextOutputStream() = default;

Ref<TextOutputStream> TextOutputStream::Create(const Ref<FolderItem>& file)
{
    std::string ignored;
    return Create(file, ignored);
}

Ref<TextOutputStream> TextOutputStream::Create(const Ref<FolderItem>& file, std::string& obstacle)
{
    if (!file)
        return nullptr;
    auto impl = std::make_unique<Impl>();
    impl->path = linkTarget(file->Path());
    if (!impl->open(obstacle))
        return nullptr;
    return New<TextOutputStream>(std::move(impl));
}

void TextOutputStream::Write(std::string_view bytes)
{
    impl_->content += bytes;
}

void TextOutputStream::Close()
{
    if (impl_->part.empty() || !impl_->replace())
        impl_->writeInPlace();
}

Ref<FolderItem> SpecialFolder::ApplicationData()
{
    return New<FolderItem>(userFolder("XDG_DATA_HOME", "/.local/share"));
}

Ref<FolderItem> SpecialFolder::State()
{
    return New<FolderItem>(userFolder("XDG_STATE_HOME", "/.local/state") + "/quorrin-map-maker");
}

Ref<FolderItem> SpecialFolder::Executable()
{
    return New<FolderItem>(QtBridge::plainPath(QCoreApplication::applicationDirPath()));
}

} // namespace quorrin
