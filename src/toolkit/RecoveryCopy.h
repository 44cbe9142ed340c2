#pragma once

#include "toolkit/SystemFiles.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorrin {

/// A copy of unsaved work on disk, in a folder of its own that only its user may read. It is locked as long as one of
/// these stands for it, and the lock goes with the process however that ends; so a copy without a lock is what a crash
/// has left.
class RecoveryCopy {
public:
    /// What is kept beside the text.
    struct Note {
        std::string Name;
        /// The absolute path of the document, empty for one that was never saved.
        std::string File;
        /// In seconds since 1970.
        std::int64_t Time = 0;
    };
    using Sink = std::function<void(std::string_view piece)>;

    /// The folder that all copies lie in, in the state folder.
    static std::string Folder();
    /// A new one, still empty. Raises IOException when there can be none.
    static std::unique_ptr<RecoveryCopy> Create();
    /// Those that no living program has, the newest first; from now on they are this program's.
    static std::vector<std::unique_ptr<RecoveryCopy>> Abandoned();

    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    const std::string& Path() const { return path_; }
    const Note& About() const { return note_; }
    /// Replaces the text by what `write` hands to its sink. Raises IOException when it cannot be written; the text from
    /// before is whole then, as it is when `write` raises something or the process ends meanwhile.
    void Write(const Note& note, const std::function<void(const Sink& take)>& write);
    /// The text. Raises IOException when it cannot be read or is not what was written.
    std::string Text() const;
    /// Takes it from the disk.
    void Remove();
    /// Moves it to where it is not found again, for a person to look at.
    void SetAside();

private:
    RecoveryCopy(std::string path, SystemFile lock);
    std::string file(std::string_view name) const { return path_ + "/" + std::string(name); }
    bool readNote();

    std::string path_;
    SystemFile lock_;
    Note note_;
    /// The file of the text in the folder, its length and its check sum; no file before the first was written.
    std::string text_;
    std::uint64_t bytes_ = 0;
    std::uint32_t sum_ = 0;
};

} // namespace quorrin
