#pragma once

#include "Core/Exception.h"
#include "Core/Stream.h"

#include <cstdint>
#include <span>

namespace Drawing::Print {

/// A stream that something flows through on its way to another one.
class WriteOnlyStream : public Core::IO::Stream {
public:
    using Stream::write;
    void write(const Core::ByteArray& from, std::size_t offset, std::size_t count) final {
        take(from.span().subspan(offset, count));
    }
    std::size_t read(Core::ByteArray& /*into*/, std::size_t /*offset*/,
                     std::size_t /*count*/) final {
        throw Core::UnreacheableCodeException("WriteOnlyStream", 1);
    }
    void seek(std::int64_t /*offset*/, Core::IO::SeekOrigin /*origin*/) final {
        throw Core::UnreacheableCodeException("WriteOnlyStream", 2);
    }
    std::int64_t length() final { throw Core::UnreacheableCodeException("WriteOnlyStream", 3); }

protected:
    virtual void take(std::span<const std::uint8_t> bytes) = 0;
};

}  // namespace Drawing::Print
