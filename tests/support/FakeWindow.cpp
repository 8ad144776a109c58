#include "support/FakeWindow.h"

namespace sw::test {

std::vector<std::string> FakeWindow::Titles() const {
  std::vector<std::string> t;
  for (const auto& m : messages) t.push_back(m.szTitle);
  return t;
}

int FakeWindow::Count(Picture p) const {
  int n = 0;
  for (const auto& col : cells) n += static_cast<int>(std::count(std::begin(col), std::end(col), p));
  return n;
}

MsgAnswer FakeWindow::MsgBox(const std::string& text, MsgButtons nButtons, const std::string& szTitle) {
  if (record) messages.push_back({text, nButtons, szTitle});
  if (answers.empty()) return nButtons == MsgButtons::YesNo ? MsgAnswer::Yes : MsgAnswer::Ok;
  const MsgAnswer a = answers.front();
  answers.pop_front();
  return a;
}

}  // namespace sw::test
