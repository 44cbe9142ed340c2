#pragma once

#include "toolkit/Ref.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorrin {

/// A file or folder by its path; it need not exist.
class FolderItem {
public:
    explicit FolderItem(std::string path) : path_(std::move(path)) {}

    const std::string& Path() const { return path_; }
    /// The last piece of the path.
    std::string Name() const;
    bool Exists() const;
    /// The item of that name in this folder.
    Ref<FolderItem> Child(std::string_view name) const;
    /// Makes the folder, with those above it; an existing one stays as it is.
    void CreateAsFolder() const;

private:
    std::string path_;
};

/// Reads a file as the bytes that it holds.
class TextInputStream {
public:
    /// Nil when `file` is nil or cannot be opened for reading. Raises IOException for one of more than 256 MB.
    static Ref<TextInputStream> Open(const Ref<FolderItem>& file);
    ~TextInputStream();
    TextInputStream(const TextInputStream&) = delete;
    TextInputStream& operator=(const TextInputStream&) = delete;

    /// All bytes of the file. Raises IOException when they cannot be read.
    std::string ReadAll();

    struct Impl;
    explicit TextInputStream(std::unique_ptr<Impl> impl);

private:
    std::unique_ptr<Impl> impl_;
};

/// All bytes of a file; nothing when it is nil or cannot be read.
std::optional<std::string> readFile(const Ref<FolderItem>& file);

/// Writes a file as a whole: the old content stays until Close has put the whole new content safely on disk, and
/// stays for good when the stream is dropped before. Links are followed and permissions kept. Where a file may be
/// written but not replaced, it is written in place, after a recovery copy of the new content is safe on disk.
class TextOutputStream {
public:
    /// Nil when `file` is nil or cannot be created. Raises IOException when the disk is full.
    static Ref<TextOutputStream> Create(const Ref<FolderItem>& file);
    /// The same, and tells what is in the way.
    static Ref<TextOutputStream> Create(const Ref<FolderItem>& file, std::string& obstacle);
    ~TextOutputStream();
    TextOutputStream(const TextOutputStream&) = delete;
    TextOutputStream& operator=(const TextOutputStream&) = delete;

    void Write(std::string_view bytes);
    /// Raises IOException when the file cannot be written.
    void Close();

    struct Impl;
    explicit TextOutputStream(std::unique_ptr<Impl> impl);

private:
    std::unique_ptr<Impl> impl_;
};

/// A kind of file. Dialogs offer it by its name and extensions; the rest is for systems that tell kinds by other marks.
struct FileType {
    std::string Name;
    /// With their dots, separated by ";".
    std::string Extensions;
    std::string MimeType{};
    std::string MacType{};
    std::string MacCreator{};
    /// Whether another program owns the kind.
    bool Imported = false;
    /// The uniform type identifiers of a wider kind and of this one.
    std::string ConformsTo{};
    std::string UTI{};
};

/// Kinds of file that a dialog offers; none means any file.
using FileFilter = std::vector<FileType>;

namespace SpecialFolder {
/// Where the programs of this user keep their data.
Ref<FolderItem> ApplicationData();
/// Where the program keeps for this user what is neither a map nor a preference: quorrin-map-maker in $XDG_STATE_HOME
/// or ~/.local/state. It need not exist.
Ref<FolderItem> State();
/// The folder of the running executable.
Ref<FolderItem> Executable();
} // namespace SpecialFolder

} // namespace quorrin
