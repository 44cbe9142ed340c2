#pragma once

#include "toolkit/Graphics.h"
#include "toolkit/Picture.h"
#include "toolkit/Ref.h"
#include "toolkit/SharedText.h"

#include <cstdint>

namespace quorrin {

/// One paper stand-up token: a strip that is folded in the middle, with the figure on both halves.
class cCharacter {
public:
    /// How many pixels of a figure are kept: four times as many each way as a token has.
    static constexpr std::int64_t mostIconPixels = std::int64_t{240} * 400;
    /// What a token makes room for, in its pixels: the figure, the foot at either end, the number on the lower one.
    static constexpr std::int64_t widestIcon = 60;
    static constexpr std::int64_t highestIcon = 100;
    static constexpr double footHeight = 22;
    static constexpr double numberAboveEdge = 10;
    static constexpr double numberSize = 12;

    /// The picture at the size at which it was loaded; nil for none.
    Ref<Picture> Icon;
    /// What the file keeps of the picture: empty for none, a negative object number for one of the catalogue, else the
    /// bytes of an image file.
    SharedText IconData;
    /// The number on the foot; drawn when greater than 0.
    std::int64_t Number = 0;

    /// Paints the whole token over the whole surface.
    void DrawCharacter(Graphics& g) const;
    /// The picture at token size, at most 60 by 100; never nil.
    Ref<Picture> SizeIcon() const;
    /// A new picture, upside down, on white.
    static Ref<Picture> FlipIcon(const Ref<Picture>& src);
    /// Makes Icon anew from IconData; nil where the bytes are no picture.
    void LoadIcon();
};

} // namespace quorrin
