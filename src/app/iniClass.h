#pragma once

#include "toolkit/Files.h"

#include <cstdint>
#include <string>

namespace quorrin {

/// A file of preferences: sections "[name]" of lines "key=value", each ended by a carriage return. Nothing is kept in
/// memory; every call searches the text of the file.
class iniClass {
public:
    /// The file need not exist yet.
    explicit iniClass(const Ref<FolderItem>& file) : iniFileName(file) {}

    Ref<FolderItem> iniFileName;

    /// The length of the value, which is put in `value`; 0 and an empty `value` when there is none.
    std::int64_t GetPreference(const std::string& section, const std::string& key, std::string& value) const;
    /// Adds or replaces the value, which may hold no carriage return. When the file cannot be read
    /// or written, it stays as it is and nothing is said.
    void SetPreference(const std::string& section, const std::string& key, const std::string& value) const;
};

} // namespace quorrin
