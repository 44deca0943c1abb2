#include "Core/Exception.h"

#include <system_error>
#include <utility>

namespace Core {

namespace {

std::string describeFailure(const std::string& action, const std::string& fileName, int error) {
    std::string text = action + " " + fileName;
    if (error != 0)
        text += ": " + std::generic_category().message(error);
    return text;
}

}  // namespace

Exception::Exception(std::string source, int line, std::string message)
    : source_(std::move(source)), line_(line), message_(std::move(message)) {
    text_ = source_ + "(" + std::to_string(line_) + "): " + message_;
}

Exception::~Exception() = default;

NullPointerException::NullPointerException(std::string source, int line)
    : Exception(std::move(source), line, "null pointer dereferenced") {}

UnreacheableCodeException::UnreacheableCodeException(std::string source, int line)
    : Exception(std::move(source), line, "value out of the range that this place handles") {}

NumberRangeException::NumberRangeException(double value)
    : Exception("NumberText", 1,
                "the number " + std::to_string(value) +
                    " cannot be written: it is not finite or beyond the range of a float") {}

IOException::IOException(const std::string& action, const std::string& fileName, int error)
    : Exception("Stream", error, describeFailure(action, fileName, error)) {}

void throwNullPointer() {
    throw NullPointerException("SmartPtr", 118);
}

}  // namespace Core
