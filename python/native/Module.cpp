#include "native/Bindings.h"

#include "Core/Object.h"

PYBIND11_MODULE(_native, module) {
    using namespace psgraphics::python;
    module.doc() = "The drawing library behind the package psgraphics.";
    bindErrors(module);
    bindValues(module);
    bindStreams(module);
    bindPaths(module);
    bindPaint(module);
    bindImages(module);
    bindFonts(module);
    bindContexts(module);
    bindDocuments(module);
    routeWarnings();
    module.attr("__version__") = PSGRAPHICS_PYTHON_VERSION;
}
