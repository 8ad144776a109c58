#pragma once
// A recording stand-in for the main window: it keeps the board, the labels
// the lag bar and the geometry, logs what is shown and played, and answers message boxes from a script.
#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "runtime/MainWindow.h"

namespace sw::test {

struct ShownMsg {
  std::string text;
  MsgButtons nButtons;
  std::string szTitle;
};

class FakeWindow : public IMainWindow {
 public:
  Picture cells[64][64]{};  // the board as drawn: [col][row]
  std::map<Label, std::string> captions;
  std::map<Label, std::pair<uint32_t, uint32_t>> labelColors;
  std::map<Label, uint32_t> foreColors;
  ProgBarState bar;                   // the lag bar as last shown
  int16_t cellTw = 0;                 // SetGridLayout
  std::vector<int> windowTw, gridTw;  // SetWindowSize: width, height, bar width; SetGridLayout: cols, rows, size
  int ended = 0;                      // EndProgram calls
  std::vector<Dialog> dialogs;        // dialogs shown, in order
  // What the player does in a dialog while it is shown (nothing: it is simply closed).
  std::function<void(Dialog)> onDialog;
  std::vector<ShownMsg> messages;
  std::deque<MsgAnswer> answers;    // scripted answers; when empty, the default button's
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
  void SetWindowSize(int32_t w, int32_t h, int32_t bar) override { windowTw = {w, h, bar}; }
  void SetGridLayout(int16_t cols, int16_t rows, int32_t w, int32_t h, int16_t cell, bool) override {
    gridTw = {cols, rows, w, h};
    cellTw = cell;
  }
  void SetCaption(Label lbl, const std::string& text) override { captions[lbl] = text; }
  void SetLabelColors(Label lbl, uint32_t back, uint32_t fore) override { labelColors[lbl] = {back, fore}; }
  void SetLabelForeColor(Label lbl, uint32_t fore) override { foreColors[lbl] = fore; }
  void ShowLagBar(const ProgBarState& b) override { bar = b; }
  MsgAnswer MsgBox(const std::string& text, MsgButtons nButtons, const std::string& szTitle) override;
  void SetSoundFileName(const std::string& fileName) override { pendingSound_ = fileName; }
  void SoundCommand(const std::string& command) override {
    if (record && command == "Open") sounds.push_back(pendingSound_);
  }
  void SetPointer(Pointer) override {}
  void Sleep(int32_t ms) override {
    if (record) sleeps.push_back(ms);
  }
  // The window events a pause lets in: whatever the test scripts here runs
  // inside the pause (once per pause, the outermost first).
  std::function<void()> onEvents;
  void DoEvents() override {
    if (onEvents) std::exchange(onEvents, nullptr)();
  }
  // The window has these items only: naming any other is a fault of the model.
  static Menu Item(Menu m) { return m <= Menu::menStartSiteNum9 ? m : throw std::out_of_range("no such menu item"); }
  void SetMenuChecked(Menu item, bool c) override { checked[Item(item)] = c; }
  void SetMenuEnabled(Menu item, bool e) override { enabled[Item(item)] = e; }
  void EndProgram() override { ++ended; }
  std::vector<std::string> announced;  // what the screen reader was given to say, in order
  void Announce(const std::string& text) override {
    if (record) announced.push_back(text);
  }
  void SendKeys(const std::string&) override {}
  int16_t stepDir = 0;  // ShowStep
  CoordPair outline;
  std::vector<PopupItem> popup;      // the last pop-up menu's items
  std::function<int16_t()> onPopup;  // the item the player picks; none when unset
  void ShowStep(Direction nDir, const CoordPair& ct) override {
    stepDir = DirCode(nDir);
    outline = ct;
  }
  int16_t PopupMenu(const std::vector<PopupItem>& items) override {
    popup = items;
    return onPopup ? onPopup() : int16_t{-1};
  }
  void ShowDialog(Dialog which) override {
    dialogs.push_back(which);
    if (onDialog) onDialog(which);
  }

 private:
  std::string pendingSound_;
};

}  // namespace sw::test
