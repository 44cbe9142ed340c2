#include "toolkit/RecoveryCopy.h"

#include "toolkit/Errors.h"
#include "toolkit/Files.h"
#include "toolkit/Text.h"

#include <libdeflate.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

// The folder of a copy holds a lock, the text in one of two files by turns, and a note that says which of them and what
// it must be. The note comes last and is replaced as a whole, so it never tells of a text that is not all there.
//
// This rests on the system alone: a copy may have to be written when the process is already on its way out.

namespace quorrin {

namespace fs = std::filesystem;

namespace {

constexpr auto lockName = "lock";
constexpr auto noteName = "about";
constexpr const char* textNames[] = {"map-1.qrnm", "map-2.qrnm"};
constexpr auto unfinished = ".part";
constexpr auto asideMark = ".damaged";

/// No file name holds a zero, so the fields need no marks of their own and can still be read by a person.
const std::string fieldEnd("\0\n", 2);
enum NoteField { NameField, FileField, TimeField, TextField, BytesField, SumField, noteFields };

[[noreturn]] void fail(const std::string& path)
{
    throw IOException("\"" + path + "\": " + std::strerror(errno));
}

/// A file that is there as a whole or not at all.
class WholeFile {
public:
    explicit WholeFile(std::string path) : path_(std::move(path)), part_(path_ + unfinished)
    {
        handle_ = open(part_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (handle_ < 0)
            fail(part_);
    }
    ~WholeFile()
    {
        if (handle_ < 0)
            return;
        close(handle_);
        unlink(part_.c_str());
    }
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    void Write(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const auto written = write(handle_, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR)
                fail(part_);
            bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        }
    }
    void Finish()
    {
        if (fsync(handle_) != 0 || rename(part_.c_str(), path_.c_str()) != 0)
            fail(path_);
        close(handle_);
        handle_ = -1;
    }

private:
    std::string path_;
    std::string part_;
    int handle_;
};

/// Makes what has been renamed in the folder outlast a loss of power. Some file systems know no such thing.
void syncFolder(const std::string& path)
{
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    fsync(folder);
    close(folder);
}

void makePrivateFolders(const fs::path& path)
{
    if (mkdir(path.c_str(), 0700) == 0 || errno != ENOENT || !path.has_relative_path())
        return;
    makePrivateFolders(path.parent_path());
    mkdir(path.c_str(), 0700);
}

/// A handle with the lock on it, or -1. Network file systems lock only what is open for writing.
int lockedHandle(const std::string& path, int flags)
{
    int handle = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | flags, 0600);
    if (handle < 0 && (errno == EACCES || errno == EROFS))
        handle = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (handle >= 0 && flock(handle, LOCK_EX | LOCK_NB) != 0) {
        close(handle);
        handle = -1;
    }
    return handle;
}

bool exists(const std::string& path)
{
    return access(path.c_str(), F_OK) == 0;
}

std::uint64_t number(const std::string& text)
{
    return std::strtoull(text.c_str(), nullptr, 10);
}

} // namespace

std::string RecoveryCopy::Folder()
{
    return SpecialFolder::State()->Child("recovery")->Path();
}

RecoveryCopy::RecoveryCopy(std::string path, int lock) : path_(std::move(path)), lock_(lock)
{}

RecoveryCopy::~RecoveryCopy()
{
    close(lock_);
}

std::unique_ptr<RecoveryCopy> RecoveryCopy::Create()
{
    makePrivateFolders(Folder());
    auto path = Folder() + "/XXXXXX";
    if (!mkdtemp(path.data()))
        fail(path);
    const int lock = lockedHandle(path + "/" + lockName, O_CREAT | O_EXCL);
    if (lock < 0) {
        const int reason = errno;
        rmdir(path.c_str());
        errno = reason;
        fail(path);
    }
    return std::unique_ptr<RecoveryCopy>(new RecoveryCopy(std::move(path), lock));
}

std::vector<std::unique_ptr<RecoveryCopy>> RecoveryCopy::Abandoned()
{
    std::vector<std::unique_ptr<RecoveryCopy>> found;
    std::error_code failure;
    for (fs::directory_iterator entry(Folder(), failure), end; !failure && entry != end; entry.increment(failure)) {
        auto path = entry->path().string();
        if (path.ends_with(asideMark))
            continue;
        const int lock = lockedHandle(path + "/" + lockName, 0);
        if (lock < 0) {
            rmdir(path.c_str()); // goes only where a program ended before it had a lock
            continue;
        }
        std::unique_ptr<RecoveryCopy> copy(new RecoveryCopy(std::move(path), lock));
        // Without a text it comes from a program that ended before it had written one.
        if (copy->readNote())
            found.push_back(std::move(copy));
        else
            copy->Remove();
    }
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a->note_.Time > b->note_.Time; });
    return found;
}

/// False when there is no text. One whose note cannot be read is there, but nothing is known of it.
bool RecoveryCopy::readNote()
{
    const auto content = readFile(New<FolderItem>(file(noteName))).value_or("");
    const auto fields = Split(content, fieldEnd);
    if (fields.UBound() != noteFields) {
        struct stat folder {};
        stat(path_.c_str(), &folder);
        note_.Time = folder.st_mtime;
        return exists(file(noteName)) || exists(file(textNames[0])) || exists(file(textNames[1]));
    }
    note_ = {fields(NameField), fields(FileField), static_cast<std::int64_t>(number(fields(TimeField)))};
    if (std::find(std::begin(textNames), std::end(textNames), fields(TextField)) != std::end(textNames))
        text_ = fields(TextField);
    bytes_ = number(fields(BytesField));
    sum_ = static_cast<std::uint32_t>(number(fields(SumField)));
    return true;
}

void RecoveryCopy::Write(const Note& note, const std::function<void(const Sink&)>& write)
{
    const std::string name = textNames[text_ == textNames[0]];
    std::uint64_t bytes = 0;
    std::uint32_t sum = 0;
    WholeFile text(file(name));
    write([&](std::string_view piece) {
        text.Write(piece);
        bytes += piece.size();
        sum = libdeflate_crc32(sum, piece.data(), piece.size());
    });
    WholeFile about(file(noteName));
    for (const auto& field : {note.Name, note.File, Str(note.Time), name, std::to_string(bytes), std::to_string(sum)})
        about.Write(field + fieldEnd);
    text.Finish();
    about.Finish();
    syncFolder(path_);
    if (!text_.empty())
        unlink(file(text_).c_str());
    note_ = note;
    text_ = name;
    bytes_ = bytes;
    sum_ = sum;
}

std::string RecoveryCopy::Text() const
{
    const auto text = text_.empty() ? std::nullopt : readFile(New<FolderItem>(file(text_)));
    if (!text || text->size() != bytes_ || libdeflate_crc32(0, text->data(), text->size()) != sum_)
        throw IOException("The copy in \"" + path_ + "\" is damaged.");
    return *text;
}

void RecoveryCopy::Remove()
{
    // The note goes first: what a crash leaves of the rest is then no copy, and the next start clears it away.
    unlink(file(noteName).c_str());
    for (const std::string name : {noteName, textNames[0], textNames[1]}) {
        unlink(file(name).c_str());
        unlink(file(name + unfinished).c_str());
    }
    unlink(file(lockName).c_str());
    rmdir(path_.c_str());
}

void RecoveryCopy::SetAside()
{
    const auto aside = path_ + asideMark;
    if (rename(path_.c_str(), aside.c_str()) == 0)
        path_ = aside;
}

} // namespace quorrin
