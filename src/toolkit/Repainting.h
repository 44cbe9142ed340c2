#pragma once

// A click on a map composes the whole page anew, though a square or two of it change. At larger scales most of the time
// would go into pixels that are there already. For the toolkit's own .cpp files.

#include "toolkit/Painting.h"

#include <vector>

namespace quorrin {

/// A picture of several pixels a unit and the steps that it was painted of.
struct PaintedPicture {
    /// In units.
    QSize size;
    bool isOpaque;
    int scale;
    std::vector<Step> steps;
    QImage image;
};

/// Pictures of fewer steps are painted as fast as they are compared.
inline constexpr std::size_t fewestStepsToRepaint = 32;

/// Keeps a picture that is no longer shown for the next one of its size and scale. Only the last one is kept.
void keepForRepainting(PaintedPicture picture);

/// The pixels that the steps make, by painting on the kept picture only where its steps differ. Null when none fits, or
/// when too much differs; the kept picture is used up.
QImage repainted(QSize size, bool isOpaque, int scale, const std::vector<Step>& steps);

} // namespace quorrin
