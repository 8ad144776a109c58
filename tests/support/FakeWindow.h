#pragma once
// A recording stand-in for the main window: it keeps the board, the labels
// and the lag bar, logs every call, and answers message boxes from a script.
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
  // The board as drawn: [col][row].
  Picture cells[64][64]{};
  std::map<Label, std::string> captions;
  std::map<Label, std::pair<uint32_t, uint32_t>> labelColors;
  uint32_t barColor = color::Blue;
  int32_t barValue = 0, barMin = 0, barMax = 13;
  std::vector<ShownMsg> messages;
  std::deque<int16_t> answers;  // scripted answers; when empty, the default button's code
  std::vector<std::string> sounds;  // file names opened
  std::vector<std::string> soundCommands;
  std::vector<int32_t> sleeps;
  std::vector<Pointer> pointers;
  std::map<Menu, bool> checked, enabled;
  int refreshes = 0, doEvents = 0, setSizes = 0, setGrids = 0;
  bool record = true;  // false: keep no logs (benchmarks)

  // Message titles in order.
  std::vector<std::string> Titles() const;
  Picture At(int col, int row) const { return cells[col][row]; }
  int Count(Picture p) const;

  void SetCellPicture(int16_t nCol, int16_t nRow, Picture pic) override;
  void Refresh() override { ++refreshes; }
  void SetSize() override { ++setSizes; }
  void SetGrid() override { ++setGrids; }
  void SetCaption(Label lbl, const std::string& text) override;
  void SetLabelColors(Label lbl, uint32_t backColor, uint32_t foreColor) override;
  uint32_t LagBarColor() const override { return barColor; }
  int32_t LagBarMax() const override { return barMax; }
  void SetLagBarColor(uint32_t c) override { barColor = c; }
  void SetLagBarValue(int32_t v) override;
  void SetLagBarRange(int32_t min, int32_t max) override { barMin = min; barMax = max; }
  int16_t MsgBox(const std::string& text, int16_t nButtons, const std::string& szTitle) override;
  void SetSoundFileName(const std::string& fileName) override;
  void SoundCommand(const std::string& command) override;
  void SetPointer(Pointer p) override;
  void Sleep(int32_t ms) override;
  void DoEvents() override { ++doEvents; }
  void SetMenuChecked(Menu item, bool c) override { checked[item] = c; }
  void SetMenuEnabled(Menu item, bool e) override { enabled[item] = e; }

 private:
  std::string pendingSound_;
};

}  // namespace sw::test
