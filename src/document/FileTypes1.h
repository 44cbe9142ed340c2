#pragma once

#include "toolkit/Files.h"

namespace quorrin::FileTypes1 {

/// The kinds of file that the program knows. The name of the map's own kind is spelled as it always was.
inline const FileType pAllFileTypes[] = {
    {.Name = "JPEG",
     .Extensions = ".jfif;.jpe;.jpeg;.jpg",
     .MacType = "JPEG",
     .MacCreator = "prvw",
     .Imported = true,
     .ConformsTo = "public.image",
     .UTI = "public.jpeg"},
    {.Name = "PNG",
     .Extensions = ".png",
     .MacType = "PNGf",
     .MacCreator = "ogle",
     .Imported = true,
     .ConformsTo = "public.image",
     .UTI = "public.png"},
    {.Name = "Bitmap",
     .Extensions = ".bmp",
     .MacType = "BMPf",
     .MacCreator = "ogle",
     .Imported = true,
     .UTI = "com.microsoft.bmp"},
    {.Name = "Quorrin Maker Maker", .Extensions = ".qrnm"},
    {.Name = "All Images", .Extensions = ".jfif;.jpe;.jpeg;.jpg;.png;.bmp", .Imported = true},
};

inline const FileType& Jpeg = pAllFileTypes[0];
inline const FileType& Png = pAllFileTypes[1];
inline const FileType& Bmp = pAllFileTypes[2];
inline const FileType& QuorrinMap = pAllFileTypes[3];
inline const FileType& AllImages = pAllFileTypes[4];

} // namespace quorrin::FileTypes1
