#include "game/StateDump.h"

#include <string>

#include "debuglog/DebugLog.h"
#include "runtime/GameState.h"
#include "runtime/MainWindow.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Shell.h"
#include "scoring/HighScores.h"
#include "scoring/Score.h"

namespace sw {

namespace {

std::string N(int64_t n) { return NumText(n); }
std::string N(Flag f) { return NumText(int64_t{f.Code()}); }

// A setting of the record as the dump writes it.
std::string SettingText(const OptionProfile& op, const Setting& s) {
  if (s.text != nullptr) return op.*s.text;
  return s.flag != nullptr ? N(op.*s.flag) : N(op.*s.number);
}

// "a, b, c" of a table's entries first to last.
template <class Table>
std::string List(const Table& t, size_t first, size_t last) {
  std::string out;
  for (size_t i = first; i <= last; ++i) out += (i > first ? ", " : "") + N(int64_t{t[i]});
  return out;
}

// A position as the map size is written: (row,column).
std::string Position(const CoordPair& ct) { return "(" + N(ct.nRow) + "," + N(ct.nCol) + ")"; }

const char* LagColorName(uint32_t barColor) {
  switch (barColor) {
    case color::Blue: return "  (Color=blue)";
    case color::Yellow: return "  (Color=yellow)";
    case color::Black: return "  (Color=black)";
    case color::Red: return "  (Color=red)";
    default: return "";
  }
}

}  // namespace

StateDump::StateDump(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, Score& score, HighScores& hs)
    : game(game), opts(opts), dbg(dbg), shell(shell), score(score), hs(hs) {
  dbg.dumpState = [this] { DebugWriteAll(); };
}

StateDump::~StateDump() { dbg.dumpState = nullptr; }

void StateDump::DebugWriteAll() {
  auto put = [this](const std::string& line) { dbg.Print(line); };
  put("Begin: DebugWriteAll");
  try {
    const OptionProfile& op = opts.Current();
    put("---Options---");
    put("Option Profile=" + NumText(opts.gnOpt) + " (max=" + N(opts.gnOptMax) + ")");
    for (const Setting* s : SettingsBy(&Setting::dumpAt)) {
      std::string line = std::string(s->dumpLabel) + "=" + SettingText(op, *s);
      if (s->number == &OptionProfile::nMapSize) line += "(" + N(game.gnMapRows) + "," + N(game.gnMapCols) + ")";
      put(line);
    }
    put("Game Number=" + N(game.gnGameNum));

    put("---Commands (selected)---");
    put("Control Profile=" + op.szProfile + " [Profile #" + N(op.nProfile) + "]");
    const ControlProfile& cp = opts.CurrentKeys();
    for (const CommandField& f : kCommandFields) {
      const int16_t key = cp.*f.field;
      put(std::string(f.label) + "=" + N(key) + "='" + std::string(1, static_cast<char>(key & 0xFF)) + "'");
    }
  } catch (const RuntimeError& e) {
    // A player or profile that does not exist: the rest of the dump still helps.
    put("Error (" + N(e.Number()) + "): " + e.Description());
  }

  put("---Score---");
  put("Score=" + N(score.glScore));
  put("Next Extra Life=" + N(score.glNextExtraLife));
  put("Extra Life Bonus(per difficulty)=" + List(score.glExtraLifeBonus, 1, 4));
  put("Global High Score Slot=" + N(hs.gnGlobalSlot));
  put("Personal High Score Slot=" + N(hs.gnPersonalSlot));
  put("Linked On Current Site=" + N(game.gbScoreNoLinkSite ? 0 : -1));
  put("Minimum Lag On Current Site=" + N(game.gbScoreMinLag));
  put("Score Modifier(per difficulty)=" + List(score.glScoreMod, 1, 4));
  put("Base Points (events 1-8)=" + List(score.glBasePoints, 1, 8));
  put("Points(events 1-8)=" + List(score.glPoints, 1, 8));
  put("Pending Score Messages=" + N(score.gnScoreMesgNum));
  for (int16_t i = 1; i <= score.gnScoreMesgNum; ++i)
    put("Message(" + N(i) + ")=" + score.gsmScoreMesg[static_cast<size_t>(i)].szMesg);

  put("---Game---");
  put("Game On=" + N(game.gbGameOn));
  put("Game Init=" + N(game.gbGameInit));
  put("Sites Hit=" + N(game.gnSitesHit));
  put("Lives=" + N(game.gnReconnects));
  put("Lag Duration=" + N(game.gnLag));
  put("Lag Severity=" + N(game.gnColorLag) + LagColorName(game.pbrNetLag.BarColor));
  put("Move Count=" + N(game.gnMoveCount));
  put("Player Direction=" + N(DirCode(game.gnPlayerDir)));
  put("Message Return=" + N(static_cast<int16_t>(shell.gnMsgReturn)));
  put("Wait On=" + N(game.gbWaitOn));
  put("End Site=" + N(game.gbEndSite));
  put("Linking=" + N(game.gbLinkOn));
  put("Sleep=" + N(game.gbSleepOn));
  put("Player Position=" + Position(game.gctPlayerPos));
  put("Virus Max=" + N(game.gnVirusMax));
  auto objects = [&](const char* label, const char* each, const std::vector<CoordPair>& list, int16_t count) {
    put(label + N(count));
    for (int16_t i = 1; i <= count && static_cast<size_t>(i) < list.size(); ++i)
      put(std::string("     ") + each + N(i) + " Position=" + Position(list[static_cast<size_t>(i)]));
  };
  objects("Virus Live=", "Virus #", game.gctVirusPos, game.gnVirusLive);
  objects("Infected Count=", "Infected #", game.gctInfectedPos, game.gnInfectedCount);
  objects("Down Server Count=", "Down Server #", game.gctDownServerPos, game.gnDownServerCount);
  put("End: DebugWriteAll");
}

}  // namespace sw
