#pragma once

#include "Core/Exception.h"
#include "Core/Object.h"

#include <concepts>
#include <cstddef>
#include <utility>

namespace Core {

/// Intrusive pointer to an `Object`: holds one reference for as long as it lives. `makeObject`
/// makes the first one; a plain pointer becomes a counted one only where that is said.
/// Dereferencing a null one raises `NullPointerException` (source "SmartPtr", line 118).
template <class T>
class SmartPtr {
public:
    SmartPtr() noexcept = default;
    SmartPtr(std::nullptr_t) noexcept {}
    /// Takes a reference of its own; `object` may be null.
    explicit SmartPtr(T* object) noexcept : object_(object) { acquire(); }
    SmartPtr(const SmartPtr& other) noexcept : object_(other.object_) { acquire(); }
    SmartPtr(SmartPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <class U>
    requires std::convertible_to<U*, T*> SmartPtr(const SmartPtr<U>& other)
    noexcept : object_(other.get()) { acquire(); }
    template <class U>
    requires std::convertible_to<U*, T*> SmartPtr(SmartPtr<U>&& other)
    noexcept : object_(other.detach()) {}
    ~SmartPtr() { release(); }

    SmartPtr& operator=(SmartPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    [[nodiscard]] T* get() const noexcept { return object_; }
    [[nodiscard]] bool isNull() const noexcept { return object_ == nullptr; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    T* operator->() const { return checked(); }
    T& operator*() const { return *checked(); }

    /// Gives the reference away: the caller holds it from now on.
    [[nodiscard]] T* detach() noexcept { return std::exchange(object_, nullptr); }

    /// The same object as a `U`, or null if it is none.
    template <class U>
    [[nodiscard]] SmartPtr<U> dynamicCast() const {
        return SmartPtr<U>(dynamic_cast<U*>(object_));
    }

    /// Identity, not content.
    friend bool operator==(const SmartPtr& a, const SmartPtr& b) noexcept {
        return a.object_ == b.object_;
    }

private:
    void acquire() const noexcept {
        if (object_)
            object_->AddRef();
    }
    void release() const {
        if (object_)
            object_->Release();
    }
    [[nodiscard]] T* checked() const {
        if (!object_) [[unlikely]]
            throwNullPointer();
        return object_;
    }

    T* object_ = nullptr;
};

/// A new `T`, already held.
template <class T, class... Arguments>
[[nodiscard]] SmartPtr<T> makeObject(Arguments&&... arguments) {
    return SmartPtr<T>(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace Core
