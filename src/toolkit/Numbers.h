#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace quorrin {

/// The number without its fraction, cut toward zero. What no 64-bit integer can hold becomes the nearest one
/// that can; what is not a number becomes 0.
inline std::int64_t Int(double number)
{
    constexpr double limit = 9223372036854775808.0; // 2 to the 63rd
    if (std::isnan(number))
        return 0;
    if (number >= limit)
        return std::numeric_limits<std::int64_t>::max();
    if (number < -limit)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(number);
}

/// a + b, stopped at the ends of the range instead of running over.
inline std::int64_t addSaturated(std::int64_t a, std::int64_t b)
{
    using Range = std::numeric_limits<std::int64_t>;
    if (b > 0 && a > Range::max() - b)
        return Range::max();
    if (b < 0 && a < Range::min() - b)
        return Range::min();
    return a + b;
}

} // namespace quorrin
