#include "toolkit/Random.h"

#include "toolkit/Errors.h"

namespace quorrin {

namespace {

/// Where the seeds of the single generators come from.
std::mt19937_64& seeds()
{
    static std::mt19937_64 engine{std::random_device{}()};
    return engine;
}

} // namespace

Random::Random() : engine_(seeds()())
{}

void Random::RandomizeSeed()
{
    engine_.seed(seeds()());
}

std::int64_t Random::InRange(std::int64_t lowest, std::int64_t highest)
{
    if (highest < lowest)
        throw RuntimeException("There is no number from " + std::to_string(lowest) + " to " + std::to_string(highest)
                               + ".");
    return std::uniform_int_distribution<std::int64_t>(lowest, highest)(engine_);
}

void Random::SeedAll(std::uint64_t seed)
{
    seeds().seed(seed);
}

} // namespace quorrin
