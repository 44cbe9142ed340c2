#include "toolkit/RecoveryCopy.h"

#include "toolkit/Errors.h"
#include "toolkit/Files.h"
#include "toolkit/Text.h"

#include <libdeflate.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>

// The folder of a copy holds a lock, the text in one of two files by turns, and a note that says which of them and what
// it must be. The note comes last and is replaced as a whole, so it never tells of a text that is not all there.
//
// This rests on system and standard library alone: a copy may have to be written when the process is on its way out.

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

void failIf(std::error_code error, const std::string& path)
{
    if (error)
        throw IOException("\"" + path + "\": " + error.message());
}

bool exists(const std::string& path)
{
    std::error_code ignored;
    return fs::exists(path, ignored);
}

void removeFile(const std::string& path)
{
    std::error_code ignored;
    fs::remove(path, ignored);
}

/// Leaves a folder that holds something as it is, and whatever is no folder.
void removeEmptyFolder(const std::string& path)
{
    std::error_code ignored;
    if (fs::is_directory(fs::symlink_status(path, ignored)))
        fs::remove(path, ignored);
}

/// A file that is there as a whole or not at all.
class WholeFile {
public:
    explicit WholeFile(std::string path) : path_(std::move(path)), part_(path_ + unfinished)
    {
        std::error_code error;
        file_ = SystemFile(part_, SystemFile::Opening::AsPrivate, error);
        failIf(error, part_);
    }
    ~WholeFile()
    {
        if (!isFinished_)
            removeFile(part_);
    }
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    void Write(std::string_view bytes) const { failIf(file_.Write(bytes), part_); }
    void Finish()
    {
        failIf(file_.Sync(), path_);
        std::error_code error;
        fs::rename(part_, path_, error);
        failIf(error, path_);
        isFinished_ = true;
    }

private:
    std::string path_;
    std::string part_;
    SystemFile file_;
    bool isFinished_ = false;
};

void makePrivateFolders(const fs::path& path)
{
    const auto error = makePrivateFolder(path.string());
    if (error != std::errc::no_such_file_or_directory || !path.has_relative_path())
        return;
    makePrivateFolders(path.parent_path());
    makePrivateFolder(path.string());
}

/// In seconds since 1970, or 0 when it is not known.
std::int64_t timeOfChange(const std::string& path)
{
    std::error_code unknown;
    const auto time = fs::last_write_time(path, unknown);
    if (unknown)
        return 0;
    const auto sinceEpoch = std::chrono::file_clock::to_sys(time).time_since_epoch();
    return std::chrono::floor<std::chrono::seconds>(sinceEpoch).count();
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

RecoveryCopy::RecoveryCopy(std::string path, SystemFile lock) : path_(std::move(path)), lock_(std::move(lock))
{}

std::unique_ptr<RecoveryCopy> RecoveryCopy::Create()
{
    makePrivateFolders(Folder());
    std::error_code error;
    auto path = makeUnusedPrivateFolder(Folder() + "/", error);
    failIf(error, path);
    auto lock = SystemFile::Locked(path + "/" + lockName, true, error);
    if (error)
        removeEmptyFolder(path);
    failIf(error, path);
    return std::unique_ptr<RecoveryCopy>(new RecoveryCopy(std::move(path), std::move(lock)));
}

std::vector<std::unique_ptr<RecoveryCopy>> RecoveryCopy::Abandoned()
{
    std::vector<std::unique_ptr<RecoveryCopy>> found;
    std::error_code failure;
    for (fs::directory_iterator entry(Folder(), failure), end; !failure && entry != end; entry.increment(failure)) {
        auto path = entry->path().string();
        if (path.ends_with(asideMark))
            continue;
        std::error_code refusal;
        auto lock = SystemFile::Locked(path + "/" + lockName, false, refusal);
        if (!lock.IsOpen()) {
            removeEmptyFolder(path); // where a program ended before it had a lock
            continue;
        }
        std::unique_ptr<RecoveryCopy> copy(new RecoveryCopy(std::move(path), std::move(lock)));
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
        note_.Time = timeOfChange(path_);
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
        removeFile(file(text_));
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
    removeFile(file(noteName));
    for (const std::string name : {noteName, textNames[0], textNames[1]}) {
        removeFile(file(name));
        removeFile(file(name + unfinished));
    }
    removeFile(file(lockName));
    removeEmptyFolder(path_);
}

void RecoveryCopy::SetAside()
{
    const auto aside = path_ + asideMark;
    std::error_code error;
    fs::rename(path_, aside, error);
    if (!error)
        path_ = aside;
}

} // namespace quorrin
