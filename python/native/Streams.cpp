// Where documents go: files, memory, Python file objects.

#include "native/Bindings.h"
#include "native/PythonStream.h"

#include "Core/FileStream.h"
#include "Core/MemoryStream.h"

namespace psgraphics::python {

using Core::SmartPtr;
using Core::IO::FileStream;
using Core::IO::MemoryStream;
using Core::IO::Stream;

void bindStreams(py::module_& module) {
    py::class_<Stream, SmartPtr<Stream>>(
        module, "Stream",
        "A sequence of bytes. Wherever a Stream is asked for, a file object of Python that is open "
        "in binary mode will do.")
        .def(py::init(&streamOf), py::arg("file").none(false))
        .def(
            "write",
            [](Stream& self, const py::bytes& bytes) {
                self.write(static_cast<std::string_view>(bytes));
            },
            py::arg("data"), "Writes all of it at the position.")
        .def(
            "read",
            [](Stream& self, std::size_t count) {
                Core::ByteArray bytes(count);
                return py::bytes(bytes.chars(), self.read(bytes, 0, count));
            },
            py::arg("count"), "Up to `count` bytes; none at the end.")
        .def(
            "seek",
            [](Stream& self, std::int64_t offset, int whence) {
                self.seek(offset, static_cast<Core::IO::SeekOrigin>(whence));
            },
            py::arg("offset"), py::arg("whence") = 0)
        .def("length", &Stream::length, "Bytes from the first to the last.")
        .def("flush", &Stream::flush, "Hands on what a buffer holds back.");
    py::class_<FileStream, Stream, SmartPtr<FileStream>>(
        module, "FileStream", "A file. `close` tells whether all bytes reached it.")
        .def(py::init([](const Core::String& name, bool writable, bool truncate) {
                 return Core::makeObject<FileStream>(name, writable, truncate, true);
             }),
             py::arg("name"), py::arg("writable") = true, py::arg("truncate") = true)
        .def("close", &FileStream::close);
    py::class_<MemoryStream, Stream, SmartPtr<MemoryStream>>(module, "MemoryStream",
                                                             "A stream in memory.")
        .def(py::init([] { return Core::makeObject<MemoryStream>(); }))
        .def(
            "getvalue",
            [](const MemoryStream& self) {
                return py::bytes(self.view().data(), self.view().size());
            },
            "A copy of all bytes.");
}

}  // namespace psgraphics::python
