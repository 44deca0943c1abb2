#pragma once

#include "Core/Stream.h"
#include "native/Bindings.h"

#include <vector>

namespace psgraphics::python {

/// A stream over a Python file object that is open in binary mode. Small pieces are gathered; what
/// the object raises passes through to the caller. Takes the interpreter's lock for each call, so
/// it may be used without it.
class PythonStream : public Core::IO::Stream {
public:
    explicit PythonStream(py::object file);
    ~PythonStream() override;

    std::size_t read(Core::ByteArray& into, std::size_t offset, std::size_t count) override;
    using Stream::write;
    void write(const Core::ByteArray& from, std::size_t offset, std::size_t count) override;
    void seek(std::int64_t offset, Core::IO::SeekOrigin origin) override;
    std::int64_t length() override;
    void flush() override;

protected:
    char* makeRoom(std::size_t count) override;

private:
    void handOver();
    void writeAll(const char* bytes, std::size_t count);

    py::object file_;
    std::vector<char> buffer_;
};

/// The stream that an argument stands for: a Stream itself, a binary file object, or null for None.
/// Raises `TypeError` for anything else.
Core::SmartPtr<Core::IO::Stream> streamOf(const py::object& output);

}  // namespace psgraphics::python
