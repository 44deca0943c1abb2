#pragma once

#include "Print/images/internal/Base85Stream.h"
#include "Print/internal/Spool.h"

#include <exception>

namespace Drawing::Print {

/// A piece of the spool in base 85. One that is given up half way stays behind unused, and the
/// next one begins after it.
class SpoolPiece {
public:
    explicit SpoolPiece(Spool& spool) : spool_(spool), base85_(spool.begin()) {}
    SpoolPiece(const SpoolPiece&) = delete;
    SpoolPiece& operator=(const SpoolPiece&) = delete;
    ~SpoolPiece() {
        if (isOpen_)
            abandon();
    }

    Core::IO::Stream& stream() { return base85_; }
    Spool::Extent finish() {
        base85_.finish();
        isOpen_ = false;
        return spool_.end();
    }

private:
    /// If the file failed, the spool does, too, when it is used next.
    void abandon() noexcept {
        try {
            static_cast<void>(spool_.end());
        } catch (const std::exception&) {
            isOpen_ = false;
        }
    }

    Spool& spool_;
    Base85Stream base85_;
    bool isOpen_ = true;
};

}  // namespace Drawing::Print
