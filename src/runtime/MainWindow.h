#pragma once
// The one seam between the game model and the screen. The model tells the
// window what to show and never asks it about the game; the only answers that
// come back are a player's (a message box's button). The main window
// implements it; tests replace it by a recording fake with scripted answers.
#include <cstdint>
#include <string>
#include <vector>

#include "runtime/GameState.h"

namespace sw {

// What a map cell shows. Player1..Player9 are imgPlayer(1..9), one per facing.
enum class Picture : int16_t {
  None = 0,
  Player1 = 1,
  Player2,
  Player3,
  Player4,
  Player5,
  Player6,
  Player7,
  Player8,
  Player9,
  Death = 10,     // imgDeath
  Virus = 11,     // imgVirus
  Infected = 12,  // imgInfected
};
inline Picture PlayerPicture(Direction nDir) {
  return nDir == Direction::None ? Picture::Player5 : static_cast<Picture>(DirCode(nDir));
}

// The message box's button sets, and the answers its buttons give (the classic codes,
// as the trace lines and the state dump print them). None: no button was pressed yet.
enum class MsgButtons : int16_t { OkOnly, OkCancel, YesNo = 4 };
enum class MsgAnswer : int16_t { None, Ok, Cancel, Yes = 6, No };

// The labels of the information bar that the model writes.
enum class Label { lblScore, lblHighScore, lblReconnects, lblSitesHit, lblVirus, lblNetLag, lblDiff, lblPUTimer };

// Mouse pointers of the main window.
enum class Pointer { Custom, Hourglass, Arrow };

// Menu items whose check mark or enabled state the model changes.
enum class Menu {
  menSound,
  menGrid,
  menUseDL,
  menClearDL,
  menMarkDL,
  menDiffLevel1,
  menDiffLevel2,
  menDiffLevel3,
  menDiffLevel4,
  menStartSiteNum0,
  menStartSiteNum1,
  menStartSiteNum2,
  menStartSiteNum3,
  menStartSiteNum4,
  menStartSiteNum5,
  menStartSiteNum6,
  menStartSiteNum7,
  menStartSiteNum8,
  menStartSiteNum9,
};

// The dialogs the model opens. Each one's state and behaviour live in a
// Qt-free class of the model; the window lays it out and forwards its events.
enum class Dialog { frmHighScore, frmCommandList, frmSelect, frmDebugMark };

// An item of a pop-up menu: its caption ("&" before its access key; after a tab, the key
// that gives it) and whether it can be chosen.
struct PopupItem {
  std::string caption;
  bool bEnabled = true;
  bool operator==(const PopupItem&) const = default;
};

// Colours are 24-bit values with red in the low byte (&HBBGGRR).
namespace color {
constexpr uint32_t Black = 0x000000;
constexpr uint32_t White = 0xFFFFFF;
constexpr uint32_t Red = 0x0000FF;
constexpr uint32_t Yellow = 0x00FFFF;
constexpr uint32_t Blue = 0xFF0000;
constexpr uint32_t Silver = 0xC0C0C0;
// The system's colour for text on buttons (a system colour, not an RGB value).
constexpr uint32_t ButtonText = 0x80000012;
}  // namespace color

class IMainWindow {
 public:
  virtual ~IMainWindow() = default;

  // grdMap: make (nCol, nRow) the current cell and set its picture (None erases it).
  virtual void SetCellPicture(int16_t nCol, int16_t nRow, Picture pic) = 0;
  // frmMain.Refresh: repaint the window now.
  virtual void Refresh() = 0;
  // SetSize: the window's width and height and the information bar's width, in twips.
  virtual void SetWindowSize(int32_t widthTw, int32_t heightTw, int32_t infoBarWidthTw) = 0;
  // SetGrid: columns and rows, the grid's width and height, every cell's size (twips),
  // and whether grid lines are drawn.
  virtual void SetGridLayout(int16_t cols, int16_t rows, int32_t widthTw, int32_t heightTw, int16_t cellTw,
                             bool bLines) = 0;

  // A label's caption, its back and fore colours, or its fore colour alone.
  virtual void SetCaption(Label lbl, const std::string& text) = 0;
  virtual void SetLabelColors(Label lbl, uint32_t backColor, uint32_t foreColor) = 0;
  virtual void SetLabelForeColor(Label lbl, uint32_t foreColor) = 0;

  // pbrNetLag, the net-lag bar: draws the bar as the state holds it.
  virtual void ShowLagBar(const ProgBarState& bar) = 0;

  // frmMsgBox: show the dialog modally with the button set and return the answer
  // (None when the box was closed without one).
  virtual MsgAnswer MsgBox(const std::string& text, MsgButtons nButtons, const std::string& szTitle) = 0;

  // mmcSound: the media control. Commands are "Stop", "Close", "Open" and "Play".
  virtual void SetSoundFileName(const std::string& fileName) = 0;
  virtual void SoundCommand(const std::string& command) = 0;

  // The timed pause: pointer, sleep, then the pending window events.
  virtual void SetPointer(Pointer p) = 0;
  virtual void Sleep(int32_t ms) = 0;
  virtual void DoEvents() = 0;

  // Menu check marks and enabled states.
  virtual void SetMenuChecked(Menu item, bool checked) = 0;
  virtual void SetMenuEnabled(Menu item, bool enabled) = 0;

  // Shows the dialog modally over the main window; returns when it is closed.
  // What the player did is left in the dialog's own state.
  virtual void ShowDialog(Dialog which) = 0;

  // Sends key strokes to the window, as typed ("{F1}": the help key).
  virtual void SendKeys(const std::string& keys) = 0;

  // Ends the program: the window closes and the event loop returns.
  virtual void EndProgram() = 0;

  // Says a short text to the player's screen reader, wherever the keyboard focus is.
  virtual void Announce(const std::string& text) = 0;

  // The step a click on the board would take where the pointer is: the direction pointer
  // shown over the board (None: the window's own pointer) and the cell outlined as the one
  // Whisk would land on ((-1, -1): none).
  virtual void ShowStep(Direction nDir, const CoordPair& ctOutline) = 0;
  // A pop-up menu at the pointer, shown modally; returns the index of the item chosen, -1 for none.
  virtual int16_t PopupMenu(const std::vector<PopupItem>& items) = 0;
};

}  // namespace sw
