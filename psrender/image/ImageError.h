#pragma once

#include <stdexcept>

namespace psrender::image {

/// An image that cannot be used. `what()` is a clause that names the fault and the remedy and
/// leaves the name of the image to the caller: "is damaged (CRC error); export it anew".
class ImageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An image that the system took away: its disk is broken or full, or files cannot be opened any
/// more. No page comes out without it. `what()` is a clause as of `ImageError`.
class ImageLost : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace psrender::image
