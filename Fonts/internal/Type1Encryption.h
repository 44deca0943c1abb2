#pragma once

#include <string>
#include <string_view>

/// The encrypted part of a Type 1 program (Adobe Type 1 Font Format, chapter 7).
namespace Fonts::Type1Encryption {

/// The binary form; takes that or hexadecimal digits with blanks between them.
[[nodiscard]] std::string toBinary(std::string_view encrypted);

/// Cuts off what stands behind the program's last word, "closefile", and the blank after it: line
/// ends of the file, which would be taken for PostScript once the part is hexadecimal. Empty for a
/// part that breaks off before that word.
[[nodiscard]] std::string cutBehindProgram(std::string encrypted);

}  // namespace Fonts::Type1Encryption
