#pragma once

#include "native/Casts.h"

#include <exception>

namespace psgraphics::python {

namespace py = pybind11;

/// Each puts one part of the library into the module; a part may refer to those above it.
void bindErrors(py::module_& module);
void bindValues(py::module_& module);
void bindStreams(py::module_& module);
void bindPaths(py::module_& module);
void bindPaint(py::module_& module);
void bindImages(py::module_& module);
void bindFonts(py::module_& module);
void bindContexts(py::module_& module);
void bindDocuments(py::module_& module);

/// Makes a C++ exception the Python exception that stands for it.
void setPythonError(const std::exception_ptr& error);

/// Passes the library's warnings on to the logger "psgraphics" of Python's logging.
void routeWarnings();

}  // namespace psgraphics::python
