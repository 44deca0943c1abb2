#pragma once

#include <string_view>

namespace Drawing::Print {

/// The procedure set of every document. Operators that pages use all the time have names of one or
/// two letters; what takes more than one operator is a procedure.
extern const std::string_view kProcedureSet;

}  // namespace Drawing::Print
