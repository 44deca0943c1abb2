#pragma once

// Methods whose arguments are all plain numbers. A bound function of pybind11 gathers its arguments
// in a tuple and tries casts one by one, which takes longer than the drawing itself; these take
// them as the interpreter has them.

#include "native/Bindings.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace psgraphics::python {

/// The object behind `self`, which the interpreter has checked to be a `T`. All classes that are
/// bound inherit from one class each, so the address of an object is that of its bases.
template <class T>
T* objectBehind(PyObject* self) {
    auto* instance = reinterpret_cast<py::detail::instance*>(self);
    if (!instance->simple_layout)
        return py::handle(self).cast<T*>();
    auto* object = static_cast<T*>(instance->simple_value_holder[0]);
    if (!object)
        PyErr_SetString(PyExc_TypeError, "__init__ of the base class was not called");
    return object;
}

template <class Signature>
struct NumberMethod;

/// A method, its name, its documentation that begins with its signature, and its parameters, of
/// which the first `required` must be given; the others are 0.
template <class T, class... Numbers>
struct NumberMethod<void (T::*)(Numbers...)> {
    using Object = T;
    static constexpr std::size_t kCount = sizeof...(Numbers);

    void (T::*method)(Numbers...);
    const char* name;
    const char* documentation;
    std::array<const char*, kCount> parameters;
    std::size_t required = kCount;

    void call(T* object, const std::array<float, kCount>& numbers) const {
        [&]<std::size_t... i>(std::index_sequence<i...>) {
            (object->*method)(numbers[i]...);
        }
        (std::make_index_sequence<kCount>());
    }
};

template <class T, class... Numbers, class... Rest>
NumberMethod(void (T::*)(Numbers...), Rest...) -> NumberMethod<void (T::*)(Numbers...)>;

/// False, and a Python exception, for what is no number.
inline bool toFloat(PyObject* source, float& number) {
    const double value =
        PyFloat_CheckExact(source) ? PyFloat_AS_DOUBLE(source) : PyFloat_AsDouble(source);
    number = static_cast<float>(value);
    return value != -1.0 || !PyErr_Occurred();
}

/// The place of a parameter that was given by name; raises `TypeError` and gives `count` if there
/// is none, or if it stands among the first `taken` already.
std::size_t placeOf(PyObject* keyword, const char* method, const char* const* parameters,
                    std::size_t count, std::size_t taken);
void raiseArgumentCount(const char* method, std::size_t required, std::size_t most,
                        std::size_t given);

template <const auto& method>
bool readNumbers(PyObject* const* arguments, std::size_t given, PyObject* keywords,
                 std::array<float, std::decay_t<decltype(method)>::kCount>& numbers) {
    constexpr std::size_t count = std::decay_t<decltype(method)>::kCount;
    const std::size_t named = keywords ? static_cast<std::size_t>(PyTuple_GET_SIZE(keywords)) : 0;
    if (given + named < method.required || given + named > count) {
        raiseArgumentCount(method.name, method.required, count, given + named);
        return false;
    }
    for (std::size_t i = 0; i < given; ++i)
        if (!toFloat(arguments[i], numbers[i]))
            return false;
    std::size_t found = given;
    for (std::size_t i = 0; i < named; ++i) {
        const std::size_t place = placeOf(PyTuple_GET_ITEM(keywords, static_cast<Py_ssize_t>(i)),
                                          method.name, method.parameters.data(), count, given);
        if (place == count || !toFloat(arguments[given + i], numbers[place]))
            return false;
        found += place < method.required ? 1 : 0;
    }
    if (found < method.required)
        raiseArgumentCount(method.name, method.required, count, found);
    return found >= method.required;
}

template <const auto& method>
PyObject* callNumberMethod(PyObject* self, PyObject* const* arguments, Py_ssize_t given,
                           PyObject* keywords) {
    using Method = std::decay_t<decltype(method)>;
    try {
        auto* object = objectBehind<typename Method::Object>(self);
        std::array<float, Method::kCount> numbers{};
        if (!object ||
            !readNumbers<method>(arguments, static_cast<std::size_t>(given), keywords, numbers))
            return nullptr;
        method.call(object, numbers);
    } catch (...) {
        setPythonError(std::current_exception());
        return nullptr;
    }
    Py_RETURN_NONE;
}

/// Gives the Python class `type` the method.
template <const auto& method>
void defineNumberMethod(py::handle type) {
    static PyMethodDef definition{
        method.name,
        reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(&callNumberMethod<method>)),
        METH_FASTCALL | METH_KEYWORDS, method.documentation};
    const auto descriptor = py::reinterpret_steal<py::object>(
        PyDescr_NewMethod(reinterpret_cast<PyTypeObject*>(type.ptr()), &definition));
    if (!descriptor)
        throw py::error_already_set();
    type.attr(method.name) = descriptor;
}

}  // namespace psgraphics::python
