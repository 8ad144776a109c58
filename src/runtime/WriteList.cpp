#include "runtime/WriteList.h"

#include <algorithm>

#include "runtime/NumText.h"
#include "runtime/RuntimeError.h"

namespace sw {

std::string WriteItem::Text() const {
  if (const auto* s = std::get_if<std::string>(&v_)) return "\"" + *s + "\"";
  return NumText(std::get<double>(v_));
}

std::string WriteListLine(const std::vector<WriteItem>& items) {
  std::string line;
  for (size_t i = 0; i < items.size(); ++i) {
    if (i > 0) line.push_back(',');
    line += items[i].Text();
  }
  line += "\r\n";
  return line;
}

double ListItem::Number() const { return Val(text); }
bool ListItem::IsNumeric() const { return sw::IsNumeric(text); }

ListReader::ListReader(std::string content) : content_(std::move(content)) {}

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kLineEnds = "\r\n";

// Takes `c` off the front of `s` when it stands there.
void SkipOne(std::string_view& s, char c) {
  if (s.starts_with(c)) s.remove_prefix(1);
}
// Takes the characters of a set off the front of `s`.
void SkipAll(std::string_view& s, std::string_view set) {
  s.remove_prefix(std::min(s.find_first_not_of(set), s.size()));
}
// Takes the front of `s` off, up to the first character of a set (all of it when there is none).
std::string_view TakeUntil(std::string_view& s, std::string_view set) {
  const std::string_view front = s.substr(0, s.find_first_of(set));
  s.remove_prefix(front.size());
  return front;
}

// Takes the item at the front of a line off it, with the comma after the item; `more` tells whether
// there was one.
ListItem ParseItem(std::string_view& line, bool& more) {
  ListItem item;
  SkipAll(line, kBlanks);
  if (line.starts_with('"')) {
    item.quoted = true;
    line.remove_prefix(1);
    item.text = TakeUntil(line, "\"");
    // Whatever stands between the closing quote and the next comma is passed over.
    TakeUntil(line, ",");
  } else {
    const std::string_view raw = TakeUntil(line, ",");
    item.text = raw.substr(0, raw.find_last_not_of(kBlanks) + 1);
  }
  more = line.starts_with(',');
  SkipOne(line, ',');
  return item;
}

}  // namespace

bool ListReader::Eof() const { return Rest().find_first_not_of(" \t\r\n") == std::string_view::npos; }

std::vector<ListItem> ListReader::ReadLine() {
  std::string_view rest = Rest();
  if (rest.empty()) throw RuntimeError(errInputPastEnd);
  std::string_view line = TakeUntil(rest, kLineEnds);
  // A line ends with CR LF, a lone CR or a lone LF.
  SkipOne(rest, '\r');
  SkipOne(rest, '\n');
  Leave(rest);

  std::vector<ListItem> items;
  bool more = true;
  while (more) items.push_back(ParseItem(line, more));
  if (items.size() == 1 && !items.front().quoted && items.front().text.empty()) items.clear();
  return items;
}

ListItem ListReader::ReadItem() {
  std::string_view rest = Rest();
  SkipAll(rest, " \t\r\n");  // line ends and blanks ahead of the item
  if (rest.empty()) throw RuntimeError(errInputPastEnd);
  // A quoted string may not cross a line end: the item is read from its own line.
  std::string_view line = rest.substr(0, rest.find_first_of(kLineEnds));
  const size_t lineSize = line.size();
  bool more = false;
  ListItem item = ParseItem(line, more);
  rest.remove_prefix(lineSize - line.size());
  // The item's delimiter is consumed with it: a comma, or the line's end.
  if (!more) {
    SkipOne(rest, '\r');
    SkipOne(rest, '\n');
  }
  Leave(rest);
  return item;
}

}  // namespace sw
