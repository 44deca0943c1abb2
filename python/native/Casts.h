#pragma once

// How the library's small values cross over: counted references are the holders of pybind11, texts
// are str, sizes and points are pairs of numbers.

#include "Core/SmartPtr.h"
#include "Core/String.h"
#include "Drawing/SizeF.h"

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <string_view>

PYBIND11_DECLARE_HOLDER_TYPE(T, Core::SmartPtr<T>, true)

namespace pybind11::detail {

/// str, and in reverse. A lone surrogate becomes U+FFFD, as everywhere in the library.
template <>
struct type_caster<Core::String> {
    PYBIND11_TYPE_CASTER(Core::String, const_name("str"));

    bool load(handle source, bool /*convert*/) {
        if (!PyUnicode_Check(source.ptr()))
            return false;
        Py_ssize_t size = 0;
        if (const char* text = PyUnicode_AsUTF8AndSize(source.ptr(), &size)) {
            value = Core::String(std::string_view(text, static_cast<std::size_t>(size)));
            return true;
        }
        PyErr_Clear();
        const auto bytes = reinterpret_steal<pybind11::bytes>(
            PyUnicode_AsEncodedString(source.ptr(), "utf-8", "surrogatepass"));
        if (!bytes)
            throw error_already_set();
        value = Core::String(static_cast<std::string_view>(bytes));
        return true;
    }

    static handle cast(const Core::String& text, return_value_policy /*policy*/,
                       handle /*parent*/) {
        return pybind11::str(text.toUtf8()).release();
    }
};

/// Any sequence of two numbers, and a tuple in reverse.
template <class Pair, float Pair::*first, float Pair::*second>
struct pair_caster {
    PYBIND11_TYPE_CASTER(Pair, const_name("Tuple[float, float]"));

    bool load(handle source, bool /*convert*/) {
        if (PySequence_Check(source.ptr()) == 0 || PyUnicode_Check(source.ptr()) != 0 ||
            PySequence_Size(source.ptr()) != 2) {
            PyErr_Clear();
            return false;
        }
        const auto numbers = reinterpret_borrow<sequence>(source);
        value.*first = numbers[0].cast<float>();
        value.*second = numbers[1].cast<float>();
        return true;
    }

    static handle cast(const Pair& pair, return_value_policy /*policy*/, handle /*parent*/) {
        return make_tuple(pair.*first, pair.*second).release();
    }
};

template <>
struct type_caster<Drawing::SizeF>
    : pair_caster<Drawing::SizeF, &Drawing::SizeF::width, &Drawing::SizeF::height> {};
template <>
struct type_caster<Drawing::XPointF>
    : pair_caster<Drawing::XPointF, &Drawing::XPointF::x, &Drawing::XPointF::y> {};

}  // namespace pybind11::detail
