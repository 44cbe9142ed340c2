#pragma once

#include <cstdint>

namespace quorrin {

/// A colour of four bytes; `transparency` 0 is opaque, 255 clear.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t transparency = 0;

    friend bool operator==(const Color&, const Color&) = default;
};

inline constexpr Color black{};
inline constexpr Color white{255, 255, 255};

/// Makes a colour from its components, each 0 to 255.
constexpr Color RGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue, std::uint8_t transparency = 0)
{
    return {red, green, blue, transparency};
}

/// The colour of the number 0xTTRRGGBB, TT being the transparency.
constexpr Color colorFromNumber(std::uint32_t number)
{
    return {static_cast<std::uint8_t>(number >> 16), static_cast<std::uint8_t>(number >> 8),
            static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 24)};
}

} // namespace quorrin
