#pragma once
// A recording stand-in for the main window: it keeps the board, the labels
// and the lag bar, logs what is shown and played, and answers message boxes from a script.
#include <algorithm>
#include <deque>
#include <map>
#include <string>
#include <vector>

#include "game/MainWindow.h"

namespace sw::test {

struct ShownMsg {
  std::string text;
  int16_t nButtons;
  std::string szTitle;
};

class FakeWindow : public IMainWindow {
 public:
  Picture cells[64][64]{};  // the board as drawn: [col][row]
  std::map<Label, std::string> captions;
  std::map<Label, std::pair<uint32_t, uint32_t>> labelColors;
  uint32_t barColor = color::Blue;
  int32_t barValue = 0, barMin = 0, barMax = 13;
  std::vector<ShownMsg> messages;
  std::deque<int16_t> answers;  // scripted answers; when empty, the default button's code
  std::vector<std::string> sounds;  // file names opened
  std::vector<int32_t> sleeps;
  std::map<Menu, bool> checked, enabled;
  bool record = true;  // false: keep no logs (benchmarks)

  std::vector<std::string> Titles() const;
  Picture At(int col, int row) const { return cells[col][row]; }
  int Count(Picture p) const;

  void SetCellPicture(int16_t nCol, int16_t nRow, Picture pic) override {
    if (nCol >= 0 && nCol < 64 && nRow >= 0 && nRow < 64) cells[nCol][nRow] = pic;
  }
  void Refresh() override {}
  void SetSize() override {}
  void SetGrid() override {}
  void SetCaption(Label lbl, const std::string& text) override { captions[lbl] = text; }
  void SetLabelColors(Label lbl, uint32_t back, uint32_t fore) override { labelColors[lbl] = {back, fore}; }
  uint32_t LagBarColor() const override { return barColor; }
  int32_t LagBarMax() const override { return barMax; }
  void SetLagBarColor(uint32_t c) override { barColor = c; }
  // The bar keeps its value within its range, as the progress bar does.
  void SetLagBarValue(int32_t v) override { barValue = std::max(std::min(v, barMax), barMin); }
  void SetLagBarRange(int32_t min, int32_t max) override { barMin = min, barMax = max; }
  int16_t MsgBox(const std::string& text, int16_t nButtons, const std::string& szTitle) override;
  void SetSoundFileName(const std::string& fileName) override { pendingSound_ = fileName; }
  void SoundCommand(const std::string& command) override {
    if (record && command == "Open") sounds.push_back(pendingSound_);
  }
  void SetPointer(Pointer) override {}
  void Sleep(int32_t ms) override {
    if (record) sleeps.push_back(ms);
  }
  void DoEvents() override {}
  void SetMenuChecked(Menu item, bool c) override { checked[item] = c; }
  void SetMenuEnabled(Menu item, bool e) override { enabled[item] = e; }

 private:
  std::string pendingSound_;
};

}  // namespace sw::test
