#pragma once

#include <functional>
#include <type_traits>
#include <utility>

namespace quorrin {

/// A value that tells its owner when it is set. Setting it from code is the same as a person's change.
template <typename T>
class Property {
public:
    /// `isSet` runs after each assignment, with the value from before.
    explicit Property(T value, std::function<void(const T& before)> isSet = {})
        : value_(std::move(value)), isSet_(std::move(isSet))
    {}
    Property(const Property&) = delete;

    Property& operator=(T value)
    {
        if (check)
            check(value);
        const T before = std::exchange(value_, std::move(value));
        if (isSet_)
            isSet_(before);
        return *this;
    }
    Property& operator=(const Property& other) { return *this = T(other.value_); }

    const T& get() const { return value_; }
    operator const T&() const { return value_; }
    friend bool operator==(const Property& property, const T& value) requires std::is_class_v<T>
    {
        return property.value_ == value;
    }

    /// Raises an exception for a value that is to be refused; nothing changes then.
    std::function<void(const T&)> check;

private:
    T value_;
    std::function<void(const T& before)> isSet_;
};

} // namespace quorrin
