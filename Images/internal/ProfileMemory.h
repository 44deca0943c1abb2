#pragma once

#include <lcms2.h>

#include <memory>
#include <type_traits>

namespace Images {

/// A context of the colour library whose allocations are watched: the library answers both a
/// damaged profile and a lack of memory with nothing.
class ProfileMemory {
public:
    /// Throws `std::bad_alloc`.
    ProfileMemory();

    [[nodiscard]] cmsContext context() const { return context_.get(); }
    /// Throws `std::bad_alloc` if memory was refused to the library on this thread since the
    /// last object was made there.
    static void requireServed();

private:
    struct Deleter {
        void operator()(cmsContext context) const { cmsDeleteContext(context); }
    };
    std::unique_ptr<std::remove_pointer_t<cmsContext>, Deleter> context_;
};

}  // namespace Images
