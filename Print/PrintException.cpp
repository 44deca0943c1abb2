#include "Print/PrintException.h"

#include <utility>

namespace Drawing::Print {

PrintException::PrintException(std::string message)
    : Exception("PrintDocument", 1, std::move(message)) {}

PrintException::~PrintException() = default;

}  // namespace Drawing::Print
