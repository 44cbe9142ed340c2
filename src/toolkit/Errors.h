#pragma once

#include <stdexcept>
#include <string>

namespace quorrin {

/// What the platform layer raises when the program's own rules let something through that cannot be done.
/// Nothing in the layer ends in undefined behaviour: it ends in one of these.
class RuntimeException : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reading through a reference that holds nothing.
class NilObjectException : public RuntimeException {
public:
    NilObjectException() : RuntimeException("An object that is needed here does not exist.") {}
};

/// An index beyond a list, an array or the rows of a popup.
class OutOfBoundsException : public RuntimeException {
public:
    explicit OutOfBoundsException(long long index)
        : RuntimeException("There is no element " + std::to_string(index) + " in this list.")
    {}
};

/// A file that could be opened but not written or read to its end.
class IOException : public RuntimeException {
public:
    using RuntimeException::RuntimeException;
};

} // namespace quorrin
