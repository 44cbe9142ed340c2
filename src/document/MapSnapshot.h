#pragma once

#include "toolkit/FrozenPicture.h"
#include "toolkit/SharedText.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorrin {

/// A map at one moment, as the parts of its file. Taking one copies neither pictures nor icons and encodes nothing; the
/// text is made when it is asked for, in whatever thread.
class MapSnapshot {
public:
    void Add(std::string text) { parts_.push_back({Part::Plain, std::move(text), {}}); }
    void AddBase64(SharedText bytes) { parts_.push_back({Part::Base64, std::move(bytes), {}}); }
    /// A picture, as it is now.
    void AddPicture(Picture& picture) { parts_.push_back({Part::Drawing, {}, FrozenPicture(picture)}); }

    /// Hands out the text of the map file, piece by piece.
    void Write(const std::function<void(std::string_view)>& take) const;
    std::string Text() const;

    /// Whether both have the same text for sure. A picture counts as another once it was drawn on.
    friend bool operator==(const MapSnapshot& a, const MapSnapshot& b) { return a.parts_ == b.parts_; }

private:
    struct Part {
        enum Kind { Plain, Base64, Drawing } kind;
        SharedText text;
        std::optional<FrozenPicture> picture;
        friend bool operator==(const Part&, const Part&) = default;
    };
    std::vector<Part> parts_;
};

} // namespace quorrin
