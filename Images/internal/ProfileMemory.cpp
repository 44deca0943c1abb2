#include "Images/internal/ProfileMemory.h"

#include <cstdlib>
#include <new>

#include <lcms2_plugin.h>

namespace Images {

namespace {

/// What a damaged profile asks for more than this is none of memory's business.
constexpr cmsUInt32Number kMostMemory = cmsUInt32Number{512} << 20;

thread_local bool wasRefused = false;

// NOLINTBEGIN(cppcoreguidelines-no-malloc): the library allocates so.
void* allocate(cmsContext /*context*/, cmsUInt32Number size) {
    void* memory = size <= kMostMemory ? std::malloc(size) : nullptr;
    wasRefused = wasRefused || (memory == nullptr && size > 0 && size <= kMostMemory);
    return memory;
}

void* reallocate(cmsContext /*context*/, void* before, cmsUInt32Number size) {
    void* memory = size <= kMostMemory ? std::realloc(before, size) : nullptr;
    wasRefused = wasRefused || (memory == nullptr && size > 0 && size <= kMostMemory);
    return memory;
}

void release(cmsContext /*context*/, void* memory) {
    std::free(memory);
}
// NOLINTEND(cppcoreguidelines-no-malloc)

cmsContext makeContext() {
    cmsPluginMemHandler handler{};
    handler.base = {cmsPluginMagicNumber, LCMS_VERSION, cmsPluginMemHandlerSig, nullptr};
    handler.MallocPtr = allocate;
    handler.FreePtr = release;
    handler.ReallocPtr = reallocate;
    return cmsCreateContext(&handler, nullptr);
}

}  // namespace

ProfileMemory::ProfileMemory() {
    wasRefused = false;
    context_.reset(makeContext());
    if (!context_)
        throw std::bad_alloc();
}

void ProfileMemory::requireServed() {
    if (wasRefused)
        throw std::bad_alloc();
}

}  // namespace Images
