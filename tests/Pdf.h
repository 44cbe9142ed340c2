#pragma once

#include "toolkit/Files.h"
#include "toolkit/Picture.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

/// What a command writes to its standard output.
inline std::string outputOf(const std::string& command)
{
    std::string all;
    std::array<char, 4096> piece;
    const std::unique_ptr<FILE, decltype(&pclose)> pipe(popen(command.c_str(), "r"), pclose);
    while (const auto got = std::fread(piece.data(), 1, piece.size(), pipe.get()))
        all.append(piece.data(), got);
    return all;
}

/// The pages of a PDF file as pictures of `scale` pixels a point.
inline std::vector<quorrin::Ref<quorrin::Picture>> pagesOf(const std::string& pdf, int scale = 1)
{
    outputOf("pdftoppm -png -r " + std::to_string(72 * scale) + " '" + pdf + "' '" + pdf + "-page'");
    std::vector<quorrin::Ref<quorrin::Picture>> pages;
    for (int number = 1;; ++number) {
        const auto path = pdf + "-page-" + std::to_string(number) + ".png";
        if (!std::filesystem::exists(path))
            return pages;
        pages.push_back(quorrin::Picture::Open(quorrin::New<quorrin::FolderItem>(path)));
        std::filesystem::remove(path);
    }
}

/// A picture in a PDF file.
struct PrintedImage {
    int width, height;
    int columnsPerInch, rowsPerInch;
};

inline std::vector<PrintedImage> imagesOf(const std::string& pdf)
{
    std::vector<PrintedImage> images;
    const auto list = outputOf("pdfimages -list '" + pdf + "' | awk 'NR > 2 {print $4, $5, $13, $14}'");
    PrintedImage image{};
    int length = 0;
    for (const char* at = list.c_str(); std::sscanf(at, "%d %d %d %d%n", &image.width, &image.height,
                                                    &image.columnsPerInch, &image.rowsPerInch, &length)
                                        == 4;
         at += length)
        images.push_back(image);
    return images;
}
