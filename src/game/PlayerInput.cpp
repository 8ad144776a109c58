#include "game/PlayerInput.h"

#include <cctype>
#include <cstdlib>
#include <iterator>
#include <vector>

#include "debuglog/DebugLog.h"
#include "game/TurnSummary.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Shell.h"

namespace sw {

namespace {

// The directions as the number pad lays them out, by row change, then column change, each -1, 0 or 1.
constexpr Direction kPad[] = {Direction::UpLeft,   Direction::Up,    Direction::UpRight,
                              Direction::Left,     Direction::Pause, Direction::Right,
                              Direction::DownLeft, Direction::Down,  Direction::DownRight};

int Sign(int32_t v) { return (v > 0) - (v < 0); }

// The board menu's captions, "&" before the access key.
const char* MenuCaption(Command cmd) {
  switch (cmd) {
    case Command::Wait: return "&Wait";
    case Command::Link: return "&Link";
    default: return "&Pause";
  }
}

}  // namespace

Direction DirectionToward(const CoordPair& from, const CoordPair& to) {
  const int32_t dx = to.nCol - from.nCol, dy = to.nRow - from.nRow;
  const int32_t ax = std::abs(dx), ay = std::abs(dy);
  const int32_t sum2 = (ax + ay) * (ax + ay);
  // Within the horizontal slice the row stays as it is, within the vertical one the column.
  const int row = sum2 < 2 * ax * ax ? 0 : Sign(dy);
  const int col = sum2 < 2 * ay * ay ? 0 : Sign(dx);
  return kPad[(row + 1) * 3 + col + 1];
}

Command StepCommand(Direction nDir) {
  switch (nDir) {
    case Direction::Up: return Command::MoveUp;
    case Direction::UpRight: return Command::MoveUpRight;
    case Direction::Right: return Command::MoveRight;
    case Direction::DownRight: return Command::MoveDownRight;
    case Direction::Down: return Command::MoveDown;
    case Direction::DownLeft: return Command::MoveDownLeft;
    case Direction::Left: return Command::MoveLeft;
    case Direction::UpLeft: return Command::MoveUpLeft;
    default: return Command::Pause;
  }
}

int16_t KeyOfCommand(const ControlProfile& cp, Command cmd) {
  const int16_t key = cp.*kCommandFields[static_cast<size_t>(cmd)].field;
  return key != 0 && CommandFor(cp, KeyFor(cp, key)) == cmd ? key : 0;
}

std::string KeyCaption(int16_t key) {
  switch (key) {
    case 8: return "Backspace";
    case 9: return "Tab";
    case 13: return "Enter";
    case 27: return "Escape";
    case 32: return "Space";
    default: break;
  }
  if (key > 32 && key < 127) return std::string(1, static_cast<char>(std::toupper(key)));
  return NumText(int64_t{key});
}

PlayerInput::PlayerInput(const GameState& game, const Options& opts, DebugLog& dbg, Shell& shell, TurnSummary& news,
                         IMainWindow& frmMain)
    : game(game), opts(opts), dbg(dbg), shell(shell), news(news), frmMain(frmMain) {}

int16_t PlayerInput::KeyOf(Command cmd) const { return KeyOfCommand(opts.CurrentKeys(), cmd); }

void PlayerInput::Form_KeyPress(int16_t KeyAscii) {
  news.Form_KeyPress(KeyAscii);
  Update();
}

void PlayerInput::grdMap_MouseMove(const CoordPair& ct) {
  ctHover_ = game.OnMap(ct) ? ct : CoordPair{};
  Update();
}

void PlayerInput::grdMap_MouseUp(int16_t Button, const CoordPair& ct) {
  // Dropped, as a key is, while no command may be given.
  if (Button != 1 || !game.OnMap(ct) || !Ready()) return;
  ctHover_ = ct;
  try {
    Give(Trace("frmMain.grdMap_MouseUp").In("Button", Button).In("ctCell", ct.Text()),
         KeyOf(StepCommand(DirectionToward(game.gctPlayerPos, ct))));
  } catch (const RuntimeError& err) {
    shell.ReportError("frmMain.grdMap_MouseUp", err);
  }
  Update();
}

void PlayerInput::grdMap_MouseDown(int16_t Button) {
  if (Button != 2 || !Ready()) return;
  std::vector<PopupItem> items;
  try {
    for (Command cmd : kMenu) {
      const int16_t key = KeyOf(cmd);
      std::string caption = MenuCaption(cmd);
      if (key != 0) {
        caption += '\t';
        // A literal "&" is written twice, as in every caption.
        for (char c : KeyCaption(key)) caption += c == '&' ? "&&" : std::string(1, c);
      }
      items.push_back(PopupItem{caption, key != 0});
    }
  } catch (const RuntimeError& err) {
    shell.ReportError("frmMain.grdMap_MouseDown", err);
    return;
  }
  const int16_t chosen = frmMain.PopupMenu(items);
  if (chosen >= 0) menBoard_Click(kMenu[chosen]);  // the window answers with an item it was given, or -1
}

void PlayerInput::menBoard_Click(Command cmd) {
  if (!Ready()) return;
  try {
    Give(Trace("frmMain.menBoard_Click").In("Command", kCommandFields[static_cast<size_t>(cmd)].name), KeyOf(cmd));
  } catch (const RuntimeError& err) {
    shell.ReportError("frmMain.menBoard_Click", err);
  }
  Update();
}

void PlayerInput::Give(TraceRecord rec, int16_t key) {
  if (dbg.On()) dbg.DebugWrite(key != 0 ? rec : rec.Note("No key gives the command"));
  if (key != 0) news.Form_KeyPress(key);
}

void PlayerInput::Update() noexcept {
  Direction nDir = Direction::None;
  CoordPair ctOutline;
  try {
    if (Ready() && game.OnMap(ctHover_) && game.OnMap(game.gctPlayerPos)) {
      const Direction dir = DirectionToward(game.gctPlayerPos, ctHover_);
      // A step that no key gives is no step a click can take.
      if (KeyOf(StepCommand(dir)) != 0) {
        nDir = dir;
        const int n = DirCode(dir) - 1;  // the pad's rows from the bottom, its columns from the left
        ctOutline = CoordPair{static_cast<int16_t>(game.gctPlayerPos.nCol + n % 3 - 1),
                              static_cast<int16_t>(game.gctPlayerPos.nRow + 1 - n / 3)};
      }
    }
  } catch (const RuntimeError&) {
    nDir = Direction::None;
    ctOutline = CoordPair{};
  }
  if (nDir == nDir_ && ctOutline == ctOutline_) return;
  nDir_ = nDir;
  ctOutline_ = ctOutline;
  frmMain.ShowStep(nDir, ctOutline);
}

}  // namespace sw
