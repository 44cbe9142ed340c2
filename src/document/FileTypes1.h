#pragma once

#include "toolkit/Files.h"

namespace quorrin::FileTypes1 {

// The kinds of file that the program knows. The name of the map's own kind is spelled as it always was.
inline const FileType Jpeg{"JPEG", ".jfif;.jpe;.jpeg;.jpg"};
inline const FileType Png{"PNG", ".png"};
inline const FileType PngPicture{"PNG picture", ".png"};
inline const FileType SharpPngPicture{"PNG picture, 4 times as sharp", ".png"};
inline const FileType Bmp{"Bitmap", ".bmp"};
inline const FileType QuorrinMap{"Quorrin Maker Maker", ".qrnm"};
inline const FileType AllImages{"All Images", ".jfif;.jpe;.jpeg;.jpg;.png;.bmp"};

} // namespace quorrin::FileTypes1
