#pragma once

#include "toolkit/Controls.h"
#include "toolkit/Picture.h"
#include "toolkit/Ref.h"

namespace quorrin {

// One accessor for every picture that the program carries, by the picture's name. Each is decoded once and shared by
// all who ask. The list is made from the drawings, so a name that nobody drew does not compile.
#define ART_PICTURE(name) const Ref<Picture>& _x_##name();
#define ART_CURSOR(name) const MouseCursor& _x_##name();
#include "ArtPictures.inc"

} // namespace quorrin
