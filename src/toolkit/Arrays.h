#pragma once

#include "toolkit/Errors.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorrin {

/// Elements 0 to UpperBound; any other index raises OutOfBoundsException.
template <typename T, int UpperBound>
class Array {
public:
    T& operator()(std::int64_t i) { return elements_[checked(i)]; }
    const T& operator()(std::int64_t i) const { return elements_[checked(i)]; }

private:
    static std::size_t checked(std::int64_t i)
    {
        if (i < 0 || i > UpperBound)
            throw OutOfBoundsException(i);
        return static_cast<std::size_t>(i);
    }
    std::array<T, UpperBound + 1> elements_{};
};

/// A square array, both indices 0 to UpperBound; any other index raises OutOfBoundsException.
template <typename T, int UpperBound>
class Array2 {
public:
    T& operator()(std::int64_t i, std::int64_t j) { return columns_(i)(j); }
    const T& operator()(std::int64_t i, std::int64_t j) const { return columns_(i)(j); }

private:
    Array<Array<T, UpperBound>, UpperBound> columns_;
};

} // namespace quorrin
