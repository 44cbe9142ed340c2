#pragma once

#include <cstdint>
#include <random>

namespace quorrin {

/// Whole random numbers. Every new one starts from a seed of its own; tests fix the seeds of all that are made later.
class Random {
public:
    Random();
    /// Starts again from a seed that nobody chose.
    void RandomizeSeed();
    /// A number from `lowest` to `highest`, both included. Raises RuntimeException when there is none.
    std::int64_t InRange(std::int64_t lowest, std::int64_t highest);

    /// From now on all generators of the program follow from this seed.
    static void SeedAll(std::uint64_t seed);

private:
    std::mt19937_64 engine_;
};

} // namespace quorrin
