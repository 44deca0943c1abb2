#pragma once

#include <string>

namespace Images {
class ImageStore;
}

namespace psrender::svg {

/// Where the images that a drawing refers to may come from.
struct ImageAccess {
    Images::ImageStore* store = nullptr;  ///< without one all images are left out
    /// Image files must lie in this folder or in folders within; empty means that none are read.
    std::string folder{};
};

}  // namespace psrender::svg
