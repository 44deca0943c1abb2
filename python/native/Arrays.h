#pragma once

#include "native/Bindings.h"

#include <pybind11/numpy.h>

#include <cstddef>
#include <span>
#include <string>

namespace psgraphics::python {

/// Numbers of an array, row after row; whatever else comes is converted.
template <class T>
using ArrayOf = py::array_t<T, py::array::c_style | py::array::forcecast>;

/// An array of rows, all of one length, which outlives the view of it.
template <class T>
class Rows {
public:
    Rows(const ArrayOf<T>& array, std::size_t columns)
        : values_(array.data(), static_cast<std::size_t>(array.size())), columns_(columns) {}

    [[nodiscard]] std::size_t size() const { return values_.size() / columns_; }
    [[nodiscard]] const T* operator[](std::size_t row) const {
        return values_.data() + row * columns_;
    }

private:
    std::span<const T> values_;
    std::size_t columns_;
};

/// `array` as rows of `columns` numbers; raises `ValueError` that names the argument for another
/// shape.
template <class T>
Rows<T> rowsOf(const ArrayOf<T>& array, std::size_t columns, const char* name) {
    const bool isEmpty = array.size() == 0;
    if (!isEmpty && (array.ndim() != 2 || array.shape(1) != static_cast<py::ssize_t>(columns)))
        throw py::value_error(std::string(name) + " must be an array of shape (n, " +
                              std::to_string(columns) + ")");
    return {array, columns};
}

}  // namespace psgraphics::python
