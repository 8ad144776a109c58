#pragma once
// The classic comma-separated write-list lines ("Write #") and their reader
// ("Input #"): strings in double quotes with no escaping, numbers bare,
// items separated by commas, each line ended by CR LF.
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace sw {

// One item to write: a string (quoted) or a number (bare).
class WriteItem {
 public:
  WriteItem(const char* s) : v_(std::string(s)) {}
  WriteItem(std::string s) : v_(std::move(s)) {}
  WriteItem(int16_t n) : v_(static_cast<double>(n)) {}
  WriteItem(int32_t n) : v_(static_cast<double>(n)) {}
  WriteItem(int64_t n) : v_(static_cast<double>(n)) {}
  WriteItem(double d) : v_(d) {}
  std::string Text() const;

 private:
  std::variant<std::string, double> v_;
};

// One whole line, CR LF included: WriteListLine({"Grid", -1}) is "\"Grid\",-1\r\n".
std::string WriteListLine(const std::vector<WriteItem>& items);

// One item as read back.
struct ListItem {
  std::string text;       // the string without its quotes, or the bare text
  bool quoted = false;    // it was written as a string
  double Number() const;  // the leading-number value of the text
  bool IsNumeric() const;
};

// Reads items from text written by write-list lines (or typed by hand).
class ListReader {
 public:
  explicit ListReader(std::string content);

  // True when nothing but blanks and line ends is left.
  bool Eof() const;
  // The next item, crossing line ends as needed; "Input past end of file" (62) at the end.
  ListItem ReadItem();
  // The items of the next line; "Input past end of file" (62) when there is no line left.
  std::vector<ListItem> ReadLine();

 private:
  // What is left to read, and how much of it the last read left.
  std::string_view Rest() const { return std::string_view(content_).substr(pos_); }
  void Leave(std::string_view rest) { pos_ = content_.size() - rest.size(); }
  std::string content_;
  size_t pos_{};
};

}  // namespace sw
