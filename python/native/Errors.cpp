// Exceptions, with the same texts, and warnings.

#include "native/Bindings.h"

#include "Core/Exception.h"
#include "Core/Log.h"
#include "Fonts/FontException.h"
#include "Images/ImageError.h"
#include "Print/PrintException.h"

#include <deque>
#include <mutex>

namespace psgraphics::python {

namespace {

/// The Python classes live as long as the process: exceptions may come until its very end.
struct ErrorClasses {
    py::object base;
    py::object nullPointer;
    py::object unreachable;
    py::object numberRange;
    py::object format;
    py::object stream;
    py::object font;
    py::object fontNotFound;
    py::object print;
    py::object image;
    py::object imageLost;
};

ErrorClasses& classes() {
    static auto* const all = new ErrorClasses;
    return *all;
}

/// A class that is also one of Python's own, so that `except ValueError` finds it, too.
py::object makeClass(py::module_& module, const char* name, const char* documentation,
                     const py::tuple& bases) {
    const std::string fullName = std::string("psgraphics.") + name;
    auto made = py::reinterpret_steal<py::object>(
        PyErr_NewExceptionWithDoc(fullName.c_str(), documentation, bases.ptr(), nullptr));
    if (!made)
        throw py::error_already_set();
    module.attr(name) = made;
    return made;
}

void raise(const py::object& type, const Core::Exception& error) {
    const py::object made = type(error.what());
    made.attr("source") = error.getSource();
    made.attr("line") = error.getLine();
    made.attr("message") = py::str(error.getMessage());
    PyErr_SetObject(type.ptr(), made.ptr());
}

/// For what does not know where in the library it was raised.
void raisePlain(const py::object& type, const std::exception& error) {
    const py::object made = type(error.what());
    made.attr("source") = "";
    made.attr("line") = 0;
    made.attr("message") = error.what();
    PyErr_SetObject(type.ptr(), made.ptr());
}

/// Warnings that wait for the interpreter: whoever raised them may not hold its lock, and waiting
/// for it here could wait for ever.
struct Waiting {
    std::mutex lock;
    std::deque<std::string> texts;
    py::object warn;
};

Waiting& waiting() {
    static auto* const all = new Waiting;
    return *all;
}

int passWarningsOn(void* /*unused*/) {
    for (;;) {
        std::string text;
        {
            const std::lock_guard guard(waiting().lock);
            if (waiting().texts.empty())
                return 0;
            text = std::move(waiting().texts.front());
            waiting().texts.pop_front();
        }
        try {
            waiting().warn("%s", text);
        } catch (py::error_already_set& error) {
            error.restore();
            return -1;
        }
    }
}

}  // namespace

void setPythonError(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (py::error_already_set& raised) {
        raised.restore();
    } catch (const py::builtin_exception& raised) {
        raised.set_error();
    } catch (const Core::NullPointerException& raised) {
        raise(classes().nullPointer, raised);
    } catch (const Core::UnreacheableCodeException& raised) {
        raise(classes().unreachable, raised);
    } catch (const Core::NumberRangeException& raised) {
        raise(classes().numberRange, raised);
    } catch (const Core::FormatException& raised) {
        raise(classes().format, raised);
    } catch (const Core::IOException& raised) {
        raise(classes().stream, raised);
    } catch (const Fonts::FontNotFoundException& raised) {
        raise(classes().fontNotFound, raised);
    } catch (const Fonts::FontException& raised) {
        raise(classes().font, raised);
    } catch (const Drawing::Print::PrintException& raised) {
        raise(classes().print, raised);
    } catch (const Core::Exception& raised) {
        raise(classes().base, raised);
    } catch (const Images::ImageError& raised) {
        raisePlain(classes().image, raised);
    } catch (const Images::ImageLost& raised) {
        raisePlain(classes().imageLost, raised);
    } catch (const Images::ImageGone& raised) {
        raisePlain(classes().imageLost, raised);
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const std::exception& raised) {
        PyErr_SetString(PyExc_RuntimeError, raised.what());
    }
}

void bindErrors(py::module_& module) {
    const auto exception = py::reinterpret_borrow<py::object>(PyExc_Exception);
    const auto value = py::reinterpret_borrow<py::object>(PyExc_ValueError);
    const auto system = py::reinterpret_borrow<py::object>(PyExc_OSError);
    const auto lookup = py::reinterpret_borrow<py::object>(PyExc_LookupError);
    ErrorClasses& all = classes();
    all.base = makeClass(module, "Error",
                         "Base of all exceptions of the library. `source`, `line` and `message` "
                         "are the parts of its text.",
                         py::make_tuple(exception));
    const auto make = [&](const char* name, const char* documentation, const py::object& own) {
        return makeClass(module, name, documentation, py::make_tuple(all.base, own));
    };
    all.nullPointer = make("NullPointerError", "Something that is needed is None.", value);
    all.unreachable = make("OutOfRangeError",
                           "A value outside of its range, or an operation that this kind of "
                           "object does not have.",
                           value);
    all.numberRange =
        make("NumberRangeError", "A number that PostScript cannot read, such as nan.", value);
    all.format = make("FormatError", "Something that has not the form asked for.", value);
    all.stream = make("StreamError", "A file or stream failed; the text says why.", system);
    all.font = make("FontError", "A font file that cannot be used.", value);
    all.fontNotFound = make("FontNotFoundError", "No font answers a description.", lookup);
    all.print = make("PrintError",
                     "A PrintDocument was asked for something that cannot be done, or not at "
                     "this time. Nothing of the call was drawn.",
                     value);
    all.image = make("ImageError", "An image file that cannot be used.", value);
    all.imageLost = make("ImageLostError",
                         "An image file that the system took away, or that was changed after it "
                         "was opened.",
                         system);
    // The signature that translators have.
    // NOLINTNEXTLINE(performance-unnecessary-value-param)
    py::register_exception_translator([](std::exception_ptr error) {
        if (error)
            setPythonError(error);
    });
}

void routeWarnings() {
    waiting().warn = py::module_::import("logging").attr("getLogger")("psgraphics").attr("warning");
    Core::Log::setSink([](const Core::String& text) {
        {
            const std::lock_guard guard(waiting().lock);
            waiting().texts.push_back(text.toUtf8());
        }
        Py_AddPendingCall(passWarningsOn, nullptr);
    });
    py::module_::import("atexit").attr("register")(
        py::cpp_function([] { Core::Log::setSink({}); }));
}

}  // namespace psgraphics::python
