#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace quorrin {

// What files need beyond the standard library, for each system in a file of its own. An error that is empty means that
// it went well.

/// An open file. No program that this one starts inherits it.
class SystemFile {
public:
    enum class Opening {
        ToRead,
        /// What it holds stays until it is written to.
        ToWrite,
        /// Only when there is none yet.
        AsNew,
        /// Empty, for this user alone, and never through a link.
        AsPrivate,
    };

    SystemFile() = default;
    SystemFile(const std::string& path, Opening opening, std::error_code& error);
    /// With a lock that only one process can have and that goes with it, however it ends.
    static SystemFile Locked(const std::string& path, bool isNew, std::error_code& error);
    SystemFile(SystemFile&& other) noexcept : handle_(std::exchange(other.handle_, none)) {}
    SystemFile& operator=(SystemFile&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~SystemFile();

    bool IsOpen() const { return handle_ != none; }
    /// Fills `bytes`, and cuts them where the file ends earlier.
    std::error_code Read(std::string& bytes) const;
    /// All of them.
    std::error_code Write(std::string_view bytes) const;
    /// Puts on disk what was written.
    std::error_code Sync() const;
    std::error_code SetSize(std::uint64_t size) const;
    /// Makes the file as large as that, if the disk has the room.
    std::error_code MakeRoom(std::uint64_t size) const;
    /// As far as the system lets this user.
    void TakeOwnerAndPermissionsOf(const std::string& path) const;

private:
    static constexpr std::intptr_t none = -1;
    explicit SystemFile(std::intptr_t handle) : handle_(handle) {}
    std::intptr_t handle_ = none;
};

/// Whether it says that the disk, or the user's share of it, is full.
bool isNoRoom(std::error_code error);

/// What keeps this user from writing to a file.
std::error_code obstacleToWriting(const std::string& path);

/// Makes what has been renamed in the folder outlast a loss of power. Some file systems know no such thing.
void syncFolder(const std::string& path);

/// For this user alone.
std::error_code makePrivateFolder(const std::string& path);
/// The same under a name that is not in use yet and begins with `path`. Gives the whole path.
std::string makeUnusedPrivateFolder(const std::string& path, std::error_code& error);

/// Where the programs of this user keep their preferences, as bytes that need be no UTF-8.
std::string userDataFolder();
/// Where they keep what is neither a document nor a preference.
std::string userStateFolder();

} // namespace quorrin
