#pragma once

#include <string>

namespace quorrin {

/// The written part of a map.
class cScript {
public:
    std::string Monsters;
    std::string GamtText;
};

} // namespace quorrin
