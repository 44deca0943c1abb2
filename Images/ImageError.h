#pragma once

#include "Images/Export.h"

#include <stdexcept>
#include <string>

namespace Images {

/// An image that cannot be used. `what()` is a clause that names the fault and the remedy and
/// leaves the name of the image to the caller: "is damaged (CRC error); export it anew".
class IMAGES_API ImageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An image that the system took away: its disk is broken or full, or files cannot be opened any
/// more. No page comes out without it. `what()` is a clause as of `ImageError`.
class IMAGES_API ImageLost : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// An image whose pixels are wanted and cannot be had any more, though they could when it was
/// opened: its file was changed, or the system took it away. `what()` is the name of the image and
/// a clause.
class IMAGES_API ImageGone : public std::runtime_error {
public:
    ImageGone(const std::string& name, const std::string& clause)
        : std::runtime_error(name + ": " + clause) {}
};

}  // namespace Images
