#include "native/PythonStream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace psgraphics::python {

namespace {

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

}  // namespace

Core::SmartPtr<Core::IO::Stream> streamOf(const py::object& output) {
    if (output.is_none())
        return nullptr;
    if (py::isinstance<Core::IO::Stream>(output))
        return output.cast<Core::SmartPtr<Core::IO::Stream>>();
    if (!py::hasattr(output, "write"))
        throw py::type_error("a document goes to a path, a binary file or a Stream");
    if (py::isinstance(output, py::module_::import("io").attr("TextIOBase")))
        throw py::type_error("the file is open as text; open it in binary mode");
    return Core::makeObject<PythonStream>(output);
}

PythonStream::PythonStream(py::object file) : file_(std::move(file)), buffer_(kBufferSize) {
    setRoom(buffer_.data(), buffer_.data() + buffer_.size());
}

/// What was not flushed is not written: only a failure leaves something.
PythonStream::~PythonStream() {
    const py::gil_scoped_acquire lock;
    file_.release().dec_ref();
}

std::size_t PythonStream::read(Core::ByteArray& into, std::size_t offset, std::size_t count) {
    const py::gil_scoped_acquire lock;
    handOver();
    const auto bytes = py::bytes(file_.attr("read")(count));
    const auto view = static_cast<std::string_view>(bytes);
    const std::size_t taken = std::min(count, view.size());
    std::memcpy(into.data() + offset, view.data(), taken);
    return taken;
}

void PythonStream::write(const Core::ByteArray& from, std::size_t offset, std::size_t count) {
    handOver();
    writeAll(from.chars() + offset, count);
}

void PythonStream::seek(std::int64_t offset, Core::IO::SeekOrigin origin) {
    const py::gil_scoped_acquire lock;
    handOver();
    file_.attr("seek")(offset, static_cast<int>(origin));
}

std::int64_t PythonStream::length() {
    const py::gil_scoped_acquire lock;
    handOver();
    const py::object place = file_.attr("tell")();
    file_.attr("seek")(0, SEEK_END);
    const auto end = file_.attr("tell")().cast<std::int64_t>();
    file_.attr("seek")(place);
    return end;
}

void PythonStream::flush() {
    const py::gil_scoped_acquire lock;
    handOver();
    if (py::hasattr(file_, "flush"))
        file_.attr("flush")();
}

char* PythonStream::makeRoom(std::size_t count) {
    handOver();
    if (buffer_.size() < count)
        buffer_.resize(count);
    setRoom(buffer_.data(), buffer_.data() + buffer_.size());
    return buffer_.data();
}

/// Empties the buffer first: should the file fail, its bytes do not come a second time.
void PythonStream::handOver() {
    const auto held = static_cast<std::size_t>(room() - buffer_.data());
    setRoom(buffer_.data(), buffer_.data() + buffer_.size());
    if (held != 0)
        writeAll(buffer_.data(), held);
}

/// A raw file may take a part only.
void PythonStream::writeAll(const char* bytes, std::size_t count) {
    const py::gil_scoped_acquire lock;
    const py::object write = file_.attr("write");
    while (count != 0) {
        // A copy: the file may keep what it is given.
        const py::object taken = write(py::bytes(bytes, count));
        const std::size_t part =
            taken.is_none() ? count : std::min(count, taken.cast<std::size_t>());
        bytes += part;
        count -= part;
    }
}

}  // namespace psgraphics::python
