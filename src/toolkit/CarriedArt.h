#pragma once

// The pictures that the program carries. For the toolkit's own .cpp files.

#include <QImage>
#include <QSize>

#include <string>

namespace quorrin {

/// What is known of a carried picture without unpacking it; the size is empty when there is none of this name.
struct CarriedArt {
    QSize size;
    bool hasAlpha = false;
};
CarriedArt carriedArt(const std::string& name);

/// The picture at one pixel a unit.
QImage plainArt(const std::string& name);

/// The same picture from its large form of four pixels a unit, scaled smoothly to these pixels.
QImage largeArt(const std::string& name, QSize pixels);

} // namespace quorrin
