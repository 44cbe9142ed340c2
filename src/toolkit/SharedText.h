#pragma once

#include <memory>
#include <string>
#include <utility>

namespace quorrin {

/// Bytes that all copies share. They never change in place, so a copy costs nothing, however long they are, and may be
/// read in another thread.
class SharedText {
public:
    SharedText() : SharedText(std::string()) {}
    SharedText(std::string bytes) : bytes_(std::make_shared<const std::string>(std::move(bytes))) {}
    SharedText(const char* text) : SharedText(std::string(text)) {}

    const std::string& get() const { return *bytes_; }
    operator const std::string&() const { return get(); }
    bool empty() const { return get().empty(); }
    void clear() { *this = {}; }
    friend bool operator==(const SharedText& a, const SharedText& b)
    {
        return a.bytes_ == b.bytes_ || a.get() == b.get();
    }

private:
    std::shared_ptr<const std::string> bytes_;
};

} // namespace quorrin
