#include "toolkit/SystemFiles.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <random>

// Who may read a file, the folder that it lies in says there, and those of a user are for that user alone.

namespace quorrin {

namespace fs = std::filesystem;

namespace {

std::error_code lastError()
{
    return {static_cast<int>(GetLastError()), std::system_category()};
}

std::error_code errorOf(BOOL result)
{
    return result ? std::error_code() : lastError();
}

HANDLE native(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

/// Sharing of the last kind lets a file be renamed and removed while it is open.
constexpr DWORD sharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::intptr_t opened(const std::string& path, DWORD access, DWORD sharing, DWORD creation, bool followsLinks)
{
    const DWORD attributes = FILE_ATTRIBUTE_NORMAL | (followsLinks ? 0 : FILE_FLAG_OPEN_REPARSE_POINT);
    const HANDLE handle = CreateFileW(fs::path(path).c_str(), access, sharing, nullptr, creation, attributes, nullptr);
    return reinterpret_cast<std::intptr_t>(handle);
}

DWORD creationOf(SystemFile::Opening opening)
{
    switch (opening) {
    case SystemFile::Opening::AsNew:
        return CREATE_NEW;
    case SystemFile::Opening::AsPrivate:
        return CREATE_ALWAYS;
    default:
        return OPEN_EXISTING;
    }
}

DWORD piece(std::size_t length)
{
    return static_cast<DWORD>(std::min<std::size_t>(length, std::numeric_limits<int>::max()));
}

} // namespace

SystemFile::SystemFile(const std::string& path, Opening opening, std::error_code& error)
    : handle_(opened(path, opening == Opening::ToRead ? GENERIC_READ : GENERIC_WRITE, sharedByAll, creationOf(opening),
                     opening != Opening::AsPrivate))
{
    error = IsOpen() ? std::error_code() : lastError();
}

SystemFile SystemFile::Locked(const std::string& path, bool isNew, std::error_code& error)
{
    const DWORD creation = isNew ? CREATE_NEW : OPEN_EXISTING;
    SystemFile file(opened(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_DELETE, creation, false));
    error = file.IsOpen() ? std::error_code() : lastError();
    return file;
}

SystemFile::~SystemFile()
{
    if (IsOpen())
        CloseHandle(native(handle_));
}

std::error_code SystemFile::Read(std::string& bytes) const
{
    std::size_t length = 0;
    for (DWORD got = 1; got > 0 && length < bytes.size(); length += got)
        if (!ReadFile(native(handle_), bytes.data() + length, piece(bytes.size() - length), &got, nullptr))
            return lastError();
    bytes.resize(length);
    return {};
}

std::error_code SystemFile::Write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        DWORD written = 0;
        if (!WriteFile(native(handle_), bytes.data(), piece(bytes.size()), &written, nullptr))
            return lastError();
        bytes.remove_prefix(written);
    }
    return {};
}

std::error_code SystemFile::Sync() const
{
    return errorOf(FlushFileBuffers(native(handle_)));
}

std::error_code SystemFile::SetSize(std::uint64_t size) const
{
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return errorOf(SetFileInformationByHandle(native(handle_), FileEndOfFileInfo, &end, sizeof end));
}

std::error_code SystemFile::MakeRoom(std::uint64_t size) const
{
    return SetSize(size);
}

void SystemFile::TakeOwnerAndPermissionsOf(const std::string&) const
{}

bool isNoRoom(std::error_code error)
{
    return error == std::errc::no_space_on_device;
}

std::error_code obstacleToWriting(const std::string& path)
{
    std::error_code error;
    SystemFile(path, SystemFile::Opening::ToWrite, error);
    return error;
}

void syncFolder(const std::string&)
{}

std::error_code makePrivateFolder(const std::string& path)
{
    return errorOf(CreateDirectoryW(fs::path(path).c_str(), nullptr));
}

std::string makeUnusedPrivateFolder(const std::string& path, std::error_code& error)
{
    for (;;) {
        auto folder = path + std::to_string(std::random_device()());
        error = makePrivateFolder(folder);
        if (error != std::errc::file_exists)
            return folder;
    }
}

std::string userDataFolder()
{
    return userStateFolder();
}

std::string userStateFolder()
{
    const wchar_t* folder = _wgetenv(L"LOCALAPPDATA");
    return folder ? fs::path(folder).string() : fs::temp_directory_path().string();
}

} // namespace quorrin
