#include "native/NumberMethod.h"

namespace psgraphics::python {

std::size_t placeOf(PyObject* keyword, const char* method, const char* const* parameters,
                    std::size_t count, std::size_t taken) {
    for (std::size_t i = 0; i < count; ++i) {
        if (PyUnicode_CompareWithASCIIString(keyword, parameters[i]) != 0)
            continue;
        if (i >= taken)
            return i;
        PyErr_Format(PyExc_TypeError, "%s() got multiple values for argument '%U'", method,
                     keyword);
        return count;
    }
    PyErr_Format(PyExc_TypeError, "%s() got an unexpected keyword argument '%U'", method, keyword);
    return count;
}

void raiseArgumentCount(const char* method, std::size_t required, std::size_t most,
                        std::size_t given) {
    if (required == most)
        PyErr_Format(PyExc_TypeError, "%s() takes %zu numbers (%zu given)", method, required,
                     given);
    else
        PyErr_Format(PyExc_TypeError, "%s() takes %zu to %zu numbers (%zu given)", method, required,
                     most, given);
}

}  // namespace psgraphics::python
