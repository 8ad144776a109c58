// One long scripted session on the game model, with the debug log on, through the
// tests' recording window: every command, every menu, every dialog, deaths, sites
// and new games, from fixed seeds. It leaves SWDebug.log, sw.opt and SWhscore.dat in
// the folder it is given, so that two builds can be compared byte for byte (the
// log's dates and times aside):
//   session_log DIR [COMMANDS] [SEED]
//   sed -E 's#[0-9]{2}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}#MM/DD/YY HH:MM:SS#g' DIR/SWDebug.log
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "support/App.h"

namespace {

using sw::Dialog;
using sw::MsgAnswer;
using sw::MsgButtons;

// Message boxes answered at random, mostly with the default button.
class SessionWindow : public sw::test::FakeWindow {
 public:
  std::mt19937* rng = nullptr;
  bool quitting = false;  // the session quits once, at its end
  MsgAnswer MsgBox(const std::string&, MsgButtons nButtons, const std::string& szTitle) override {
    const unsigned r = (*rng)() % 10;
    if (szTitle == "Quit Skitterweb") return quitting ? MsgAnswer::Yes : MsgAnswer::No;
    if (nButtons == MsgButtons::YesNo) return r < 7 ? MsgAnswer::Yes : MsgAnswer::No;
    if (nButtons == MsgButtons::OkCancel) return r < 8 ? MsgAnswer::Ok : MsgAnswer::Cancel;
    return MsgAnswer::Ok;
  }
};

// Two players; the first, current one has the debug log on and a profile of her own.
const char* const kOptions =
    "\"Version\",\"1.14\"\r\n\"LastOption\",\" 1\"\r\n"
    "\"OptionNum\",1\r\n\"UserName\",\"Ann\"\r\n\"Password\",\"pw\"\r\n\"ControlProfileNum\",1\r\n"
    "\"ControlProfileName\",\"Number Pad (Default)\"\r\n\"ControlProfileBegin\",5\r\n\"CPName\",\"Mine\"\r\n"
    "\"CPAntiVirus\",49\r\n\"CPBackup\",113\r\n\"CPDedLine\",101\r\n\"CPLink\",13\r\n\"CPMoveDown\",46\r\n"
    "\"CPMoveDownLeft\",44\r\n\"CPMoveDownRight\",47\r\n\"CPMoveLeft\",107\r\n\"CPMoveRight\",59\r\n"
    "\"CPMoveUp\",111\r\n\"CPMoveUpLeft\",105\r\n\"CPMoveUpRight\",112\r\n\"CPPause\",108\r\n"
    "\"CPReboot\",50\r\n\"CPRestore\",119\r\n\"CPSoftUpgrade\",51\r\n\"CPWait\",9\r\n"
    "\"Debug\",-1\r\n\"Diff\",3\r\n\"Grid\",0\r\n\"Sound\",-1\r\n\"StartSite\",2\r\n\"MapSize\",3\r\n"
    "\"DownServers\",0\r\n\"Safe\",-1\r\n"
    "\"OptionNum\",3\r\n\"UserName\",\"Bob\"\r\n\"Password\",\"\"\r\n\"Debug\",0\r\n\"Diff\",4\r\n";

}  // namespace

int main(int argc, char* argv[]) {
  if (argc < 2 || chdir(argv[1]) != 0) {
    std::fprintf(stderr, "usage: session_log DIR [COMMANDS] [SEED]\n");
    return 2;
  }
  const long commands = argc > 2 ? std::atol(argv[2]) : 40000;
  std::mt19937 rng(argc > 3 ? static_cast<unsigned>(std::atol(argv[3])) : 11u);
  auto pick = [&](unsigned n) { return static_cast<int>(rng() % n); };

  SessionWindow w;
  w.rng = &rng;
  w.record = false;
  sw::Skitterweb sw{w};
  sw.game.bSeedFromTimer = false;
  sw.rnd.Randomize(11);

  const std::string letters = "abcdefghijklmnopqrstuvwxyz;/.,-+ ";
  // What the player does inside each dialog.
  w.onDialog = [&](Dialog which) {
    switch (which) {
      case Dialog::frmHighScore: {
        sw::HighScoreDialog& d = sw.webmasters;
        for (int16_t row = 1; row <= 10; ++row) {
          d.txtName_GotFocus(row);
          if (d.nFocus == row) {
            d.txtName_Change(row, "Player " + std::to_string(pick(100)));
            d.txtName_LostFocus(row);
          }
        }
        if (pick(3) == 0) d.optType_Click(static_cast<int16_t>(pick(2)));
        if (pick(3) == 0) d.optDiff_Click(static_cast<int16_t>(1 + pick(4)));
        if (pick(25) == 0) d.cmdClearCur_Click();
        if (pick(60) == 0) d.cmdClearAll_Click();
        d.cmdDone_Click();
        break;
      }
      case Dialog::frmCommandList: {
        sw::CommandListDialog& d = sw.controls;
        for (int n = pick(4); n > 0; --n) {
          const int16_t i = static_cast<int16_t>(pick(11));
          if (pick(4) == 0)
            d.cmbKey_Change(i, "", static_cast<int16_t>(pick(5)));
          else
            d.cmbKey_Change(i,
                            std::string(1, letters[static_cast<size_t>(pick(static_cast<unsigned>(letters.size())))]));
          if (pick(5) == 0) d.cmbKey_LostFocus(i);
        }
        if (pick(4) == 0)
          d.cmbProfile_Click(static_cast<int16_t>(pick(static_cast<unsigned>(d.cmbProfileItems.size()))));
        if (pick(4) == 0) d.cmdSaveProfile_Click();
        if (pick(6) == 0) d.cmdDelProfile_Click();
        if (pick(10) == 0) d.cmdHelp_Click();
        if (pick(3) == 0)
          d.cmdCancel_Click();
        else
          d.cmdOK_Click();
        break;
      }
      case Dialog::frmSelect: {
        sw::SelectDialog& d = sw.select;
        if (pick(5) == 0) {
          d.cmdCancel_Click();
          break;
        }
        static const char* const kNames[] = {"Mine", "keyboard left", "Arrows", "", "MINE", "Lefty"};
        if (!d.cmbItems.empty() && pick(3) == 0)
          d.cmbSelect_Click(static_cast<int16_t>(pick(static_cast<unsigned>(d.cmbItems.size()))));
        else
          d.cmbSelect_Change(kNames[pick(6)]);
        d.cmdOk_Click();
        if (d.bShown) d.cmdCancel_Click();  // an empty name was refused: give up
        break;
      }
      case Dialog::frmDebugMark: {
        sw::DebugMarkDialog& d = sw.mark;
        d.Form_Activate();
        d.txtComment = pick(4) == 0 ? "" : "mark " + std::to_string(pick(1000));
        if (pick(5) == 0)
          d.cmdCancel_Click();
        else
          d.cmdOk_Click();
        break;
      }
    }
  };

  // A returning player whose options turn the debug log on.
  if (std::FILE* f = std::fopen("sw.opt", "wb")) {
    std::fputs(kOptions, f);
    std::fclose(f);
  }
  sw.menu.Form_Load();

  // Halfway, the log is switched off, kept aside, and switched on again and cleared.

  const std::string keys = "8963214705+abdrsexzwfc";
  for (long n = 0; n < commands; ++n) {
    if (n == commands / 2) {
      if (sw.dbg.On()) sw.menu.menUseDL_Click();
      std::rename("SWDebug.log", "SWDebug.1.log");
      sw.menu.menUseDL_Click();
      sw.menu.menClearDL_Click();
    }
    // Now and then a game with a full set of reconnects, close to its next extra one: on hard
    // and nightmare the bonus that takes its place overflows.
    if (n % 397 == 0 && sw.game.gbGameOn) {
      sw.game.gnReconnects = 5;
      sw.score.glScore = sw.score.glNextExtraLife - 1;
    }
    const int r = pick(1000);
    if (r < 930) {
      sw.news.Form_KeyPress(static_cast<int16_t>(keys[static_cast<size_t>(pick(static_cast<unsigned>(keys.size())))]));
    } else if (r < 945) {
      sw.menu.menNewGame_Click();
    } else if (r < 955) {
      sw.menu.menDiffLevel_Click(static_cast<int16_t>(1 + pick(4)));
    } else if (r < 962) {
      sw.menu.menStartSiteNum_Click(static_cast<int16_t>(pick(10)));
    } else if (r < 966) {
      sw.menu.menGrid_Click();
    } else if (r < 970) {
      sw.menu.menSound_Click();
    } else if (r < 975) {
      sw.menu.lblDiff_MouseDown(static_cast<int16_t>(1 + pick(2)));
    } else if (r < 980) {
      sw.menu.menHighScores_Click();
    } else if (r < 986) {
      sw.menu.menControls_Click();
    } else if (r < 990) {
      sw.menu.menMarkDL_Click();
    } else if (r < 993) {
      sw.menu.menAbout_Click();
    } else if (r < 996) {
      sw.menu.menCredits_Click();
    } else if (r < 998) {
      sw.menu.menHelpFile_Click();
    } else if (sw.game.gbGameOn) {
      sw.menu.menQuit_Click();  // answered No: the game goes on
    }
  }
  w.quitting = true;
  sw.menu.menQuit_Click();
  std::printf("session_log: %ld commands, %d games\n", commands, int{sw.game.gnGameNum});
  return 0;
}
