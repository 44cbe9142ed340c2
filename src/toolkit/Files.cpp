#include "toolkit/Files.h"

#include "toolkit/QtBridge.h"
#include "toolkit/RecoveryCopy.h"
#include "toolkit/SystemFiles.h"

#include <QCoreApplication>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <random>
#include <system_error>

// Paths are bytes, and not all of them are UTF-8; so files are worked on without Qt.

namespace quorrin {

namespace fs = std::filesystem;

namespace {

/// Beyond anything that the program reads; a larger file would only take the memory away.
constexpr std::uintmax_t largestFile = 256 << 20;

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
    SystemFile file;
    std::uintmax_t size;
};

TextInputStream::TextInputStream(std::unique_ptr<Impl> impl) : impl_(std::move(impl))
{}

TextInputStream::~TextInputStream() = default;

Ref<TextInputStream> TextInputStream::Open(const Ref<FolderItem>& file)
{
    std::error_code error;
    if (!file || !fs::is_regular_file(file->Path(), error))
        return nullptr;
    const auto size = fs::file_size(file->Path(), error);
    if (error)
        return nullptr;
    if (size > largestFile)
        throw IOException("The file is too large.");
    SystemFile opened(file->Path(), SystemFile::Opening::ToRead, error);
    if (!opened.IsOpen())
        return nullptr;
    return New<TextInputStream>(std::make_unique<Impl>(Impl{std::move(opened), size}));
}

std::string TextInputStream::ReadAll()
{
    std::string bytes(impl_->size, '\0');
    if (const auto error = impl_->file.Read(bytes))
        throw IOException("The file cannot be read: " + error.message());
    return bytes;
}

std::optional<std::string> readFile(const Ref<FolderItem>& file)
{
    try {
        const auto stream = TextInputStream::Open(file);
        return stream ? std::optional(stream->ReadAll()) : std::nullopt;
    } catch (const IOException&) {
        return {};
    }
}

struct TextOutputStream::Impl {
    /// Links followed.
    std::string path;
    /// The file beside it that takes its place; empty when it is written in place.
    std::string part;
    SystemFile file;
    std::string content;

    ~Impl()
    {
        std::error_code ignored;
        if (!part.empty())
            fs::remove(part, ignored);
    }

    [[noreturn]] void fail(std::error_code error, const std::string& more = {}) const
    {
        throw IOException("The file \"" + FolderItem(path).Name() + "\" cannot be written: " + error.message() + more);
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
    std::error_code error;
    const auto status = fs::status(path, error);
    const bool exists = fs::exists(status);
    if (!isFolder(folder)) {
        obstacle = "There is no folder \"" + folder + "\".";
    } else if (exists && !fs::is_regular_file(status)) {
        obstacle = "\"" + name + "\" is not a file that can be replaced.";
    } else if (const auto refusal = exists ? obstacleToWriting(path) : std::error_code()) {
        obstacle = "The file \"" + name + "\" cannot be replaced: " + refusal.message();
    } else {
        part = folder + "/" + unusedName();
        file = SystemFile(part, SystemFile::Opening::AsNew, error);
        if (file.IsOpen())
            return true;
        part.clear();
        if (isNoRoom(error))
            fail(error);
        if (exists)
            return true;
        obstacle = "The folder \"" + folder + "\" cannot be written to: " + error.message();
    }
    return false;
}

/// False when the folder lets no other file take this one's place.
bool TextOutputStream::Impl::replace()
{
    if (const auto error = file.Write(content))
        fail(error);
    // Closing alone does not notice that the disk took only a part.
    if (const auto error = file.Sync())
        fail(error);
    std::error_code error;
    const bool exists = fs::exists(path, error);
    if (exists)
        file.TakeOwnerAndPermissionsOf(path);
    fs::rename(part, path, error);
    if (error) {
        if (exists
            && (error == std::errc::permission_denied || error == std::errc::operation_not_permitted
                || error == std::errc::device_or_resource_busy))
            return false;
        fail(error);
    }
    part.clear();
    syncFolder(folderOf(path));
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
    const auto failWithoutCopy = [&](std::error_code error) {
        copy->Remove();
        fail(error);
    };
    std::error_code error;
    const SystemFile target(path, SystemFile::Opening::ToWrite, error);
    const auto oldSize = error ? 0 : fs::file_size(path, error);
    if (error)
        failWithoutCopy(error);
    // Room is made first, so that a full disk leaves the old content whole.
    if (content.size() > oldSize)
        error = target.MakeRoom(content.size());
    if (isNoRoom(error) || error == std::errc::file_too_large) {
        target.SetSize(oldSize);
        failWithoutCopy(error);
    }
    error = target.Write(content);
    if (!error)
        error = target.SetSize(content.size());
    if (!error)
        error = target.Sync();
    if (error)
        fail(error, ". A whole copy is kept in \"" + copy->Path() + "\".");
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
    return New<FolderItem>(userDataFolder());
}

Ref<FolderItem> SpecialFolder::State()
{
    return New<FolderItem>(userStateFolder() + "/quorrin-map-maker");
}

Ref<FolderItem> SpecialFolder::Executable()
{
    return New<FolderItem>(QtBridge::plainPath(QCoreApplication::applicationDirPath()));
}

} // namespace quorrin
