#pragma once

#include "Core/Export.h"

#include <atomic>

namespace Core {

/// Base of everything that is shared by counted reference.
///
/// A new object has no reference; the first `SmartPtr` takes one, and the object destroys
/// itself when the last one lets go. The count is atomic, so objects that do not change
/// (fonts, images) may be shared between threads. Copying an object copies its content,
/// never its count. Make objects with `makeObject`: one on the stack, or held by another owner, is
/// destroyed a second time as soon as a `SmartPtr` to it lets go.
class CORE_API Object {
public:
    Object() = default;
    Object(const Object&) noexcept {}
    Object& operator=(const Object&) noexcept { return *this; }
    virtual ~Object();
    /// Called once, when the last reference goes; destroys the object. A subclass may override it
    /// to hand the object back to a pool instead.
    virtual void OnFinalRelease();

    void AddRef() noexcept { references_.fetch_add(1, std::memory_order_relaxed); }
    void Release() {
        if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            OnFinalRelease();
    }
    [[nodiscard]] int getReferenceCount() const noexcept {
        return references_.load(std::memory_order_relaxed);
    }

private:
    std::atomic<int> references_{0};
};

}  // namespace Core
