#include "runtime/NumText.h"

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
  if (std::isinf(v)) return v > 0 ? "Infinity" : "-Infinity";
  if (v == 0.0) return "0";
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*G", digits, v);
  return buf;
}

}  // namespace

double Val(std::string_view text) {
  // The classic Val ignores blanks anywhere in the number.
  std::string s;
  s.reserve(text.size());
  for (char c : text) {
    if (!IsBlank(c)) s.push_back(c);
  }
  if (s.size() >= 2 && s[0] == '&' && (s[1] == 'H' || s[1] == 'h' || s[1] == 'O' || s[1] == 'o')) {
    const int base = (s[1] == 'H' || s[1] == 'h') ? 16 : 8;
    int64_t v = 0;
    size_t i = 2;
    for (; i < s.size(); ++i) {
      const char c = static_cast<char>(std::toupper(static_cast<unsigned char>(s[i])));
      int d = -1;
      if (c >= '0' && c <= '9')
        d = c - '0';
      else if (base == 16 && c >= 'A' && c <= 'F')
        d = c - 'A' + 10;
      if (d < 0 || d >= base) break;
      v = v * base + d;
      if (v > 0xFFFFFFFFLL) break;
    }
    // Hex and octal constants are 16-bit when they fit, else 32-bit, both signed.
    if (v <= 0xFFFF) return static_cast<double>(static_cast<int16_t>(static_cast<uint16_t>(v)));
    return static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(v)));
  }
  size_t i = 0;
  std::string num;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) num.push_back(s[i++]);
  bool digits = false;
  while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
    num.push_back(s[i++]);
    digits = true;
  }
  if (i < s.size() && s[i] == '.') {
    num.push_back(s[i++]);
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
      num.push_back(s[i++]);
      digits = true;
    }
  }
  if (!digits) return 0.0;
  if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
    std::string ex = "E";
    size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ex.push_back(s[j++]);
    while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j]))) ex.push_back(s[j++]);
    num += ex;  // an exponent without digits reads as none
  }
  return std::strtod(num.c_str(), nullptr);
}

bool IsNumeric(std::string_view text) {
  size_t b = 0, e = text.size();
  while (b < e && IsBlank(text[b])) ++b;
  while (e > b && IsBlank(text[e - 1])) --e;
  const std::string_view s = text.substr(b, e - b);
  if (s.empty()) return false;
  if (s.size() >= 3 && s[0] == '&' && (s[1] == 'H' || s[1] == 'h')) {
    for (size_t i = 2; i < s.size(); ++i)
      if (!std::isxdigit(static_cast<unsigned char>(s[i]))) return false;
    return true;
  }
  size_t i = 0;
  if (s[i] == '+' || s[i] == '-') ++i;
  bool digits = false;
  while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
    ++i;
    digits = true;
  }
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
      ++i;
      digits = true;
    }
  }
  if (!digits) return false;
  if (i < s.size() && (s[i] == 'E' || s[i] == 'e' || s[i] == 'D' || s[i] == 'd')) {
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
    bool exDigits = false;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) {
      ++i;
      exDigits = true;
    }
    if (!exDigits) return false;
  }
  return i == s.size();
}

std::string NumText(double v) { return GFormat(v, 15); }
std::string NumText(float v) { return GFormat(static_cast<double>(v), 7); }
std::string NumText(int64_t v) { return std::to_string(v); }
std::string BoolText(bool b) { return b ? "True" : "False"; }

std::string Str(double v) {
  std::string t = NumText(v);
  // Str drops the zero before the point: " .5", "-.5".
  if (t.rfind("0.", 0) == 0)
    t.erase(0, 1);
  else if (t.rfind("-0.", 0) == 0)
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
