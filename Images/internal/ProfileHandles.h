#pragma once

#include <lcms2.h>

#include <memory>

namespace Images {

struct ProfileCloser {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
/// A colour profile that the colour library has read or made.
using Profile = std::unique_ptr<void, ProfileCloser>;

struct TransformDeleter {
    void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
/// What the colour library brings colours from one profile to another with.
using Transform = std::unique_ptr<void, TransformDeleter>;

}  // namespace Images
