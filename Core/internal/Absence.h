#pragma once

#include <cerrno>

namespace Core::IO {

/// Whether an `errno` says that a name leads to nothing that may be read, which is up to whoever
/// wrote the name. All else (a full or broken disk, too few descriptors, no memory) is the
/// system's, and what it takes away is never just left out.
inline bool isAbsence(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
        case EACCES:
        case EPERM:
        case ELOOP:
        case ENAMETOOLONG:
        case ENXIO:
        case ENODEV:
            return true;
        default:
            return false;
    }
}

}  // namespace Core::IO
