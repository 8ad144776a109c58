#pragma once
// Number text as the classic runtime reads and writes it.
#include <cstdint>
#include <string>
#include <string_view>

namespace sw {

// Leading-number parse: skips blanks, reads as much of a number as it can,
// gives 0 for text that does not start with a number ("&H" hex and "&O" octal too).
double Val(std::string_view text);
// True when the whole text (blanks around it allowed) is a number.
bool IsNumeric(std::string_view text);

// Number to text with a leading blank for a non-negative number (" 5", "-5").
std::string Str(double v);
// Number to text as concatenation renders it: no leading blank, up to 15
// significant digits for a double ("5", "-5", "0.25", "1E+20").
std::string NumText(double v);
// A single-precision number as concatenation renders it (7 significant digits).
std::string NumText(float v);
std::string NumText(int64_t v);
// Booleans in concatenation: "True" / "False".
std::string BoolText(bool b);

// The "#,##0" format: rounded to a whole number, thousands separated by commas.
std::string FormatThousands(int64_t v);

}  // namespace sw
