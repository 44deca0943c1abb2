#pragma once

#include "Core/Export.h"

#include <exception>
#include <string>

namespace Core {

/// Base of all exceptions of the library. Source, line and message are kept apart; `what()` is
/// "source(line): message" in UTF-8, composed once.
///
/// The source is a name that stays the same from release to release ("PSDocument", "SmartPtr"),
/// and the line tells the places that raise under one name apart; neither is a file position.
class CORE_API Exception : public std::exception {
public:
    Exception(std::string source, int line, std::string message);
    ~Exception() override;

    [[nodiscard]] const std::string& getSource() const noexcept { return source_; }
    [[nodiscard]] int getLine() const noexcept { return line_; }
    [[nodiscard]] const std::string& getMessage() const noexcept { return message_; }
    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

private:
    std::string source_;
    int line_;
    std::string message_;
    std::string text_;
};

/// A null `SmartPtr` was dereferenced.
class CORE_API NullPointerException : public Exception {
public:
    NullPointerException(std::string source, int line);
};

/// A value that no valid input reaches: an enumeration out of its range, an operation that this
/// kind of object does not have.
class CORE_API UnreacheableCodeException : public Exception {
public:
    UnreacheableCodeException(std::string source, int line);
};

/// A number that the output cannot hold: not finite, or beyond the range of a 32-bit float.
class CORE_API NumberRangeException : public Exception {
public:
    explicit NumberRangeException(double value);
};

/// A text that does not have the form asked for: a number with letters in it, a template with
/// fewer arguments than places.
class CORE_API FormatException : public Exception {
public:
    using Exception::Exception;
};

/// A file or stream failed; the message names the file and the system's reason.
class CORE_API IOException : public Exception {
public:
    /// `error` is an errno value, 0 if the reason is `action` alone.
    IOException(const std::string& action, const std::string& fileName, int error);
};

/// Raises the exception of a null `SmartPtr`; out of line to keep dereferencing small.
[[noreturn]] CORE_API void throwNullPointer();

}  // namespace Core
