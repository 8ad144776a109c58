#include "runtime/WriteList.h"

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

bool ListReader::Eof() const {
  for (size_t i = pos_; i < content_.size(); ++i) {
    const char c = content_[i];
    if (c != ' ' && c != '\t' && c != '\r' && c != '\n') return false;
  }
  return true;
}

namespace {
bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }
}  // namespace

// Parses one item of a line starting at pos; leaves pos after the item's comma
// (more = true) or at the line's end (more = false).
ListItem ListReader::ParseItem(std::string_view line, size_t& pos, bool& more) const {
  ListItem item;
  while (pos < line.size() && (line[pos] == ' ' || line[pos] == '\t')) ++pos;
  if (pos < line.size() && line[pos] == '"') {
    item.quoted = true;
    const size_t close = line.find('"', pos + 1);
    if (close == std::string_view::npos) {
      item.text = std::string(line.substr(pos + 1));
      pos = line.size();
    } else {
      item.text = std::string(line.substr(pos + 1, close - pos - 1));
      pos = close + 1;
    }
    // Whatever stands between the closing quote and the next comma is passed over.
    const size_t comma = line.find(',', pos);
    if (comma == std::string_view::npos) {
      pos = line.size();
      more = false;
    } else {
      pos = comma + 1;
      more = true;
    }
    return item;
  }
  const size_t comma = line.find(',', pos);
  const size_t end = comma == std::string_view::npos ? line.size() : comma;
  std::string_view raw = line.substr(pos, end - pos);
  while (!raw.empty() && (raw.back() == ' ' || raw.back() == '\t')) raw.remove_suffix(1);
  item.text = std::string(raw);
  more = comma != std::string_view::npos;
  pos = more ? comma + 1 : line.size();
  return item;
}

std::vector<ListItem> ListReader::ReadLine() {
  if (pos_ >= content_.size()) throw RuntimeError(errInputPastEnd);
  size_t end = pos_;
  while (end < content_.size() && !IsLineEnd(content_[end])) ++end;
  const std::string_view line(content_.data() + pos_, end - pos_);
  // A line ends with CR LF, a lone CR or a lone LF.
  size_t next = end;
  if (next < content_.size() && content_[next] == '\r') ++next;
  if (next < content_.size() && content_[next] == '\n') ++next;
  pos_ = next;

  std::vector<ListItem> items;
  size_t p = 0;
  bool more = true;
  while (more) {
    items.push_back(ParseItem(line, p, more));
  }
  if (items.size() == 1 && !items.front().quoted && items.front().text.empty()) items.clear();
  return items;
}

ListItem ListReader::ReadItem() {
  // Skip line ends and blanks ahead of the item.
  while (pos_ < content_.size() && (IsLineEnd(content_[pos_]) || content_[pos_] == ' ' || content_[pos_] == '\t'))
    ++pos_;
  if (pos_ >= content_.size()) throw RuntimeError(errInputPastEnd);
  size_t end = pos_;
  // A quoted string may not cross a line end; find the end of this item's line.
  while (end < content_.size() && !IsLineEnd(content_[end])) ++end;
  const std::string_view rest(content_.data() + pos_, end - pos_);
  size_t p = 0;
  bool more = false;
  ListItem item = ParseItem(rest, p, more);
  pos_ += p;
  // The item's delimiter is consumed with it: a comma, or the line's end.
  if (!more) {
    if (pos_ < content_.size() && content_[pos_] == '\r') ++pos_;
    if (pos_ < content_.size() && content_[pos_] == '\n') ++pos_;
  }
  return item;
}

}  // namespace sw
