#pragma once

#include "document/Layer.h"
#include "document/cCharacter.h"
#include "document/cScript.h"
#include "toolkit/Arrays.h"
#include "toolkit/Picture.h"

#include <cstdint>
#include <string>

namespace quorrin {

/// What lies on a map and what belongs to it. Its settings live in the controls of Window1, which is such a map.
class Map {
public:
    using Layer = quorrin::Layer;
    static constexpr int columns = Layer::columns;
    static constexpr int rows = Layer::rows;
    static constexpr int characters = 20;
    /// The sides of a page in page pixels; landscape is longSide wide.
    static constexpr int longSide = 756;
    static constexpr int shortSide = 576;

    Layer mySquares;
    Layer mySquaresTop;
    Array<Owned<cCharacter>, characters> myCharacters;
    Owned<cScript> myScript;
    /// The free drawing, nil for none.
    Ref<Picture> UserPicture;

    /// Makes squares, script and characters anew, and leaves the drawing.
    void MakeAnew();
    /// Places and shows the squares of the bottom layer for a row of pmLandscape.
    void SetSquaresVisible(std::int64_t orientation);
    void SetTopSquaresVisible(std::int64_t orientation);

    /// A picture as text of the map file, flattened on white.
    static std::string ConvertPictureToData(const Ref<Picture>& picture);
    /// The picture of such a text, its white clear; nil when the text holds none.
    static Ref<Picture> ConvertDataToPicture(const std::string& text);

    /// A new tile of 56 by 56 of an object in a colour mode (row of pmColorBW); clear for an unknown number.
    Ref<Picture> DrawObject(std::int64_t objectNumber, std::int64_t colorMode) const; // src/render
    /// A new tile of 56 by 56 of a marker; clear for an unknown number.
    static Ref<Picture> DrawDM(std::int64_t markerNumber); // src/render
};

} // namespace quorrin
