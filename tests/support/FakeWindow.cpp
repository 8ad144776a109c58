#include "support/FakeWindow.h"

#include <algorithm>

namespace sw::test {

std::vector<std::string> FakeWindow::Titles() const {
  std::vector<std::string> t;
  for (const auto& m : messages) t.push_back(m.szTitle);
  return t;
}

int FakeWindow::Count(Picture p) const {
  int n = 0;
  for (const auto& col : cells)
    for (Picture c : col) n += (c == p);
  return n;
}

void FakeWindow::SetCellPicture(int16_t nCol, int16_t nRow, Picture pic) {
  if (nCol >= 0 && nCol < 64 && nRow >= 0 && nRow < 64) cells[nCol][nRow] = pic;
}

void FakeWindow::SetCaption(Label lbl, const std::string& text) { captions[lbl] = text; }

void FakeWindow::SetLabelColors(Label lbl, uint32_t backColor, uint32_t foreColor) {
  labelColors[lbl] = {backColor, foreColor};
}

void FakeWindow::SetLagBarValue(int32_t v) {
  // The bar keeps its value within its range, as the progress bar does.
  barValue = std::max(std::min(v, barMax), barMin);
}

int16_t FakeWindow::MsgBox(const std::string& text, int16_t nButtons, const std::string& szTitle) {
  if (record) messages.push_back({text, nButtons, szTitle});
  if (!answers.empty()) {
    const int16_t a = answers.front();
    answers.pop_front();
    return a;
  }
  return nButtons == 4 ? 6 : 1;
}

void FakeWindow::SetSoundFileName(const std::string& fileName) { pendingSound_ = fileName; }

void FakeWindow::SoundCommand(const std::string& command) {
  if (!record) return;
  soundCommands.push_back(command);
  if (command == "Open") sounds.push_back(pendingSound_);
}

void FakeWindow::SetPointer(Pointer p) {
  if (record) pointers.push_back(p);
}

void FakeWindow::Sleep(int32_t ms) {
  if (record) sleeps.push_back(ms);
}

}  // namespace sw::test
