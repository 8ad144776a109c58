#include "runtime/NumText.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "runtime/Value.h"

namespace sw {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string GFormat(double v, int digits) {
  if (std::isnan(v)) return "NaN";
  if (std::isinf(v)) return std::signbit(v) ? "-Infinity" : "Infinity";
  if (v == 0.0) return "0";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*G", digits, v);
  return buf;
}

constexpr std::string_view kDigits = "0123456789";

// Reads a text from the front, a character or a run of characters of a given set at a time.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : text_(text), rest_(text) {}
  // Takes the next character if it is one of the set.
  bool One(std::string_view set) {
    if (rest_.empty() || set.find(rest_.front()) == std::string_view::npos) return false;
    rest_.remove_prefix(1);
    return true;
  }
  // Takes the characters of the set that come next; false when there is none.
  bool Run(std::string_view set) {
    const size_t n = std::min(rest_.find_first_not_of(set), rest_.size());
    rest_.remove_prefix(n);
    return n > 0;
  }
  bool AtEnd() const { return rest_.empty(); }
  std::string_view Taken() const { return text_.substr(0, static_cast<size_t>(rest_.data() - text_.data())); }

 private:
  std::string_view text_;
  std::string_view rest_;
};

// A sign, digits, a point and digits: false when there is no digit on either side of the point.
bool Mantissa(Cursor& c) {
  c.One("+-");
  const bool whole = c.Run(kDigits);
  const bool fraction = c.One(".") && c.Run(kDigits);
  return whole || fraction;
}

// "E", "e", "D" or "d", a sign and digits: false when there is no digit.
bool Exponent(Cursor& c) {
  if (!c.One("EeDd")) return false;
  c.One("+-");
  return c.Run(kDigits);
}

// "&H" or "&O" (either case) and the number's base, or 0 when the text starts with neither.
int Base(std::string_view s) {
  const std::string_view prefix = s.substr(0, 2);
  if (prefix == "&H" || prefix == "&h") return 16;
  if (prefix == "&O" || prefix == "&o") return 8;
  return 0;
}

}  // namespace

double Val(std::string_view text) {
  // The classic Val ignores blanks anywhere in the number.
  std::string s;
  s.reserve(text.size());
  for (char c : text) {
    if (!IsBlank(c)) s.push_back(c);
  }
  if (const int base = Base(s)) {
    const std::string_view digits = std::string_view("0123456789ABCDEF").substr(0, static_cast<size_t>(base));
    int64_t v = 0;
    for (char c : std::string_view(s).substr(2)) {
      const size_t d = digits.find(static_cast<char>(std::toupper(static_cast<unsigned char>(c))));
      if (d == std::string_view::npos) break;
      v = (v * base + static_cast<int64_t>(d)) & 0xFFFFFFFF;  // past 32 bits, the last 32 count
    }
    // Hex and octal constants are 16-bit when they fit, else 32-bit, both signed.
    if (v <= 0xFFFF) return static_cast<double>(static_cast<int16_t>(static_cast<uint16_t>(v)));
    return static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(v)));
  }
  Cursor c(s);
  if (!Mantissa(c)) return 0.0;
  Exponent(c);  // an exponent without digits reads as none
  std::string num(c.Taken());
  std::ranges::replace(num, 'D', 'E');
  std::ranges::replace(num, 'd', 'E');
  return std::strtod(num.c_str(), nullptr);
}

bool IsNumeric(std::string_view text) {
  std::string_view s = text;
  while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
  Cursor c(s);
  if (c.One("&")) return c.One("Hh") && c.Run("0123456789ABCDEFabcdef") && c.AtEnd();
  if (!Mantissa(c)) return false;
  return c.AtEnd() || (Exponent(c) && c.AtEnd());
}

std::string NumText(double v) { return GFormat(v, 15); }
std::string NumText(float v) { return GFormat(static_cast<double>(v), 7); }
std::string NumText(int64_t v) { return std::to_string(v); }
std::string BoolText(bool b) { return b ? "True" : "False"; }

std::string Str(double v) {
  std::string t = NumText(v);
  // Str drops the zero before the point: " .5", "-.5".
  if (t.starts_with("0."))
    t.erase(0, 1);
  else if (t.starts_with("-0."))
    t.erase(1, 1);
  if (v >= 0 || std::isnan(v)) t.insert(t.begin(), ' ');
  return t;
}

std::string FormatThousands(int64_t v) {
  const std::string digits = std::to_string(v < 0 ? -v : v);
  std::string out;
  const int n = static_cast<int>(digits.size());
  for (int i = 0; i < n; ++i) {
    if (i > 0 && (n - i) % 3 == 0) out.push_back(',');
    out.push_back(digits[static_cast<size_t>(i)]);
  }
  if (v < 0) out.insert(out.begin(), '-');
  return out;
}

std::string Value::Text() const {
  struct Visitor {
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(bool b) const { return BoolText(b); }
    std::string operator()(int64_t n) const { return NumText(n); }
    std::string operator()(double d) const { return NumText(d); }
    std::string operator()(Single s) const { return NumText(s.f); }
    std::string operator()(const std::string& s) const { return s; }
  };
  return std::visit(Visitor{}, v_);
}

}  // namespace sw
