#pragma once

#include "toolkit/Errors.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace quorrin {

/// A shared reference that may be nil. Objects live as long as a reference to them does; reading through nil
/// raises NilObjectException.
template <typename T>
class Ref {
public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    explicit Ref(std::shared_ptr<T> object) : object_(std::move(object)) {}

    T& operator*() const
    {
        if (!object_)
            throw NilObjectException();
        return *object_;
    }
    T* operator->() const { return &**this; }
    explicit operator bool() const { return object_ != nullptr; }
    T* get() const { return object_.get(); }
    operator Ref<const T>() const { return Ref<const T>(object_); }
    friend bool operator==(const Ref& a, const Ref& b) { return a.object_ == b.object_; }

private:
    std::shared_ptr<T> object_;
};

/// Makes a T and the first reference to it.
template <typename T, typename... Arguments>
Ref<T> New(Arguments&&... arguments)
{
    return Ref<T>(std::make_shared<T>(std::forward<Arguments>(arguments)...));
}

/// A reference to a part of its owner: the part of a constant owner is constant, too.
template <typename T>
class Owned {
public:
    Owned() = default;
    Owned(Ref<T> part) : part_(std::move(part)) {}

    T& operator*() { return *part_; }
    const T& operator*() const { return *part_; }
    T* operator->() { return &*part_; }
    const T* operator->() const { return &*part_; }
    explicit operator bool() const { return static_cast<bool>(part_); }
    operator const Ref<T>&() { return part_; }
    operator Ref<const T>() const { return part_; }
    friend bool operator==(const Owned& a, const Ref<T>& b) { return a.part_ == b; }

private:
    Ref<T> part_;
};

} // namespace quorrin
