#pragma once

#include <string_view>

namespace Drawing::Print {

/// The procedure set, which documents write as far as they use it. Operators that pages use all the
/// time have names of one or two letters; what takes more than one operator is a procedure. The
/// dictionary that it stands in is left open.
extern const std::string_view kBasicProcedures;
extern const std::string_view kPlacingProcedures;
extern const std::string_view kGradientProcedures;
extern const std::string_view kTextProcedures;

}  // namespace Drawing::Print
