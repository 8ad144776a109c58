#include "game/MainMenu.h"

#include "debuglog/DebugLog.h"
#include "debuglog/DebugMarkDialog.h"
#include "debuglog/DebugSession.h"
#include "game/Game.h"
#include "game/StateDump.h"
#include "options/CommandListDialog.h"
#include "options/OptionsFile.h"
#include "runtime/Difficulty.h"
#include "runtime/GameState.h"
#include "runtime/MainWindow.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Shell.h"
#include "scoring/HighScoreDialog.h"
#include "scoring/HighScores.h"
#include "scoring/Score.h"

namespace sw {

namespace {

Menu DiffItem(int16_t i) { return static_cast<Menu>(static_cast<int>(Menu::menDiffLevel1) + i - 1); }
Menu StartSiteItem(int16_t i) { return static_cast<Menu>(static_cast<int>(Menu::menStartSiteNum0) + i); }

}  // namespace

MainMenu::MainMenu(GameState& game, Options& opts, OptionsFile& optsFile, DebugLog& dbg, DebugSession& session,
                   StateDump& dump, Shell& shell, Score& score, HighScores& hs, HighScoreDialog& webmasters,
                   Game& engine, DebugMarkDialog& mark, CommandListDialog& controls, IMainWindow& frmMain)
    : game(game), opts(opts), optsFile(optsFile), dbg(dbg), session(session), dump(dump), shell(shell), score(score),
      hs(hs), webmasters(webmasters), engine(engine), mark(mark), controls(controls), frmMain(frmMain) {}

void MainMenu::Run(const char* szProc, const std::function<void()>& command) {
  try {
    command();
  } catch (const RuntimeError& e) {
    shell.ReportError(szProc, e);
  }
  if (onCommandEnd) onCommandEnd();
}

void MainMenu::RecordGame() {
  if (game.gbGameOn) webmasters.CheckHighScore();
}

void MainMenu::ShowHighScore(int16_t nDiff) {
  frmMain.SetCaption(Label::lblHighScore, FormatThousands(hs.Entry(HighScores::kAllTime, nDiff, 1).lScore));
}

// ---------------------------------------------------------------------------
// Start-up and the window's events

void MainMenu::Form_Load() {
  game.gbGameInit = true;
  optsFile.LoadOptions();
  if (dbg.On()) dbg.DebugWrite(Trace("frmMain.Form_Load"));
  score.InitScore();
  game.gnPlayerDir = Direction::Pause;
  game.gbGameOn = true;
  game.gbWaitOn = false;
  game.gbLinkOn = false;

  game.pbrNetLag.Min = 0;
  game.pbrNetLag.Max = 13;
  game.pbrNetLag.SetValue(0);
  frmMain.ShowLagBar(game.pbrNetLag);

  game.gnMapCols = 24;
  game.gnMapRows = 14;

  frmMain.SetCaption(Label::lblSitesHit, NumText(int64_t{game.gnSitesHit}));
  frmMain.SetCaption(Label::lblReconnects, "2");
  frmMain.SetCaption(Label::lblScore, "0");
  engine.ShowVirusCount();
  game.gnGameNum = 0;

  // The loaded options are applied by the menu commands themselves.
  Run("frmMain.Form_Load", [this] {
    const OptionProfile& op = opts.Current();
    frmMain.SetMenuChecked(Menu::menSound, static_cast<bool>(op.bSound));
    frmMain.SetMenuChecked(Menu::menGrid, static_cast<bool>(op.bGrid));
    const int16_t nDiff = op.nDiff;
    const int16_t nStartSite = op.nStartSite;
    menDiffLevel_Click(nDiff);
    menStartSiteNum_Click(nStartSite);
    menGrid_Click();
    menSound_Click();
  });
  game.gbGameInit = false;

  engine.StartGame();

  hs.LoadHighScores();
  Run("frmMain.Form_Load", [this] { ShowHighScore(opts.Current().nDiff); });
}

void MainMenu::Form_Unload() {
  frmMain.SoundCommand("Close");
  menQuit_Click();
}

void MainMenu::lblDiff_MouseDown(int16_t Button) {
  if (Button != 2) return;
  Run("frmMain.lblDiff_MouseDown", [this] {
    int16_t next = static_cast<int16_t>(opts.Current().nDiff + 1);
    if (next > 4) next = 1;
    menDiffLevel_Click(next);
  });
}

// ---------------------------------------------------------------------------
// Game

void MainMenu::menNewGame_Click() {
  if (shell.Refused()) return;
  Run("frmMain.menNewGame_Click", [this] {
    if (game.gbGameOn) {
      shell.ShowMsg(std::string("Starting a new game will end the game in progress.") + "\n" +
                        "Do you want to end the current game?",
                    MsgButtons::YesNo, "Start New Game", "comp-abort game.mp3");
      if (shell.gnMsgReturn != MsgAnswer::Yes) return;
    }
    if (dbg.On()) dbg.DebugWrite(Trace("frmMain.menNewGame_Click"));
    RecordGame();
    engine.StartGame();
  });
}

void MainMenu::menHighScores_Click() {
  if (shell.Refused()) return;
  Run("frmMain.menHighScores_Click", [this] { webmasters.ShowHighScores(HighScores::kAllTime, opts.CheckedDiff()); });
}

void MainMenu::menQuit_Click() {
  if (shell.Refused()) return;
  bool bQuit = true;
  Run("frmMain.menQuit_Click", [&] {
    if (game.gbGameOn) {
      shell.ShowMsg("Are you sure you want to quit and loose your game in progress?", MsgButtons::YesNo,
                    "Quit Skitterweb", "comp-abort game.mp3");
      if (shell.gnMsgReturn != MsgAnswer::Yes) {
        bQuit = false;
        return;
      }
    }
    RecordGame();
  });
  if (!bQuit) return;
  Run("frmMain.menQuit_Click", [this] { optsFile.SaveOptions(); });
  Run("frmMain.menQuit_Click", [this] {
    if (dbg.On()) {
      dbg.DebugWrite(Trace("frmMain.menQuit_Click"));
      dbg.DebugExit();
      opts.Current().bDebug = false;
      session.DebugClose();
    }
    if (opts.Current().bSound) {
      shell.PlaySound("comp-goodbye.mp3");
      shell.SleepTurn(2000);
    }
  });
  frmMain.EndProgram();
}

void MainMenu::EndSession() {
  Run("EndSession", [this] { optsFile.SaveOptions(); });
  Run("EndSession", [this] {
    if (dbg.On()) {
      dbg.DebugWrite(Trace("EndSession"), true);
      dbg.DebugExit();
    }
  });
  frmMain.EndProgram();
}

// ---------------------------------------------------------------------------
// Options

void MainMenu::menSound_Click() {
  Run("frmMain.menSound_Click", [this] {
    OptionProfile& op = opts.Current();
    if (!game.gbGameInit) op.bSound = !op.bSound;
    frmMain.SetMenuChecked(Menu::menSound, static_cast<bool>(op.bSound));
    if (!game.gbGameInit && op.bSound) shell.PlaySound("comp-program start.mp3");
    if (dbg.On()) dbg.DebugWrite(Trace("frmMain.menSound_Click").Var("gopOpts(gnOpt).bSound", op.bSound));
  });
}

void MainMenu::menGrid_Click() {
  Run("frmMain.menGrid_Click", [this] {
    OptionProfile& op = opts.Current();
    if (!game.gbGameInit) op.bGrid = !op.bGrid;
    frmMain.SetMenuChecked(Menu::menGrid, static_cast<bool>(op.bGrid));
    if (!game.gbGameInit) shell.PlaySound("comp-option change.mp3");
    engine.SetGrid();
    if (dbg.On()) dbg.DebugWrite(Trace("frmMain.menGrid_Click").Var("gopOpts(gnOpt).bGrid", op.bGrid));
  });
}

void MainMenu::menControls_Click() {
  Run("frmMain.menControls_Click", [this] { controls.Show(); });
}

void MainMenu::menDiffLevel_Click(int16_t Index) {
  if (shell.Refused()) return;
  Run("frmMain.menDiffLevel_Click", [this, Index] {
    if (dbg.On()) dbg.DebugWrite(Trace("frmMain.menDiffLevel_Click").In("Index", Index));
    if (Index < 1 || Index > 4) throw RuntimeError(errSubscript);
    const Difficulty& level = kDifficulties[Index];
    OptionProfile& op = opts.Current();
    if (!game.gbGameInit) {
      if (Index == op.nDiff) {
        frmMain.SetMenuChecked(DiffItem(Index), true);
        return;
      }
      if (game.gbGameOn) {
        shell.ShowMsg(std::string("Changing the game difficulty to ") + level.szWord + " will start a new game." +
                          "\n" + "Are you sure you want to loose your game in progress?",
                      MsgButtons::YesNo, "Change Game Difficulty", "comp-abort game.mp3");
        if (shell.gnMsgReturn != MsgAnswer::Yes) return;
      }
      shell.PlaySound("comp-option change.mp3");
      RecordGame();
    }
    opts.Current().nDiff = Index;
    frmMain.SetCaption(Label::lblDiff, level.szName);
    ShowHighScore(Index);
    for (int16_t i = 1; i <= 4; ++i) frmMain.SetMenuChecked(DiffItem(i), i == Index);
    engine.StartGame();
  });
}

void MainMenu::menStartSiteNum_Click(int16_t Index) {
  if (shell.Refused()) return;
  Run("frmMain.menStartSiteNum_Click", [this, Index] {
    OptionProfile& op = opts.Current();
    Flag bNewGame = true;
    if (!game.gbGameInit) {
      if (Index == op.nStartSite) {
        frmMain.SetMenuChecked(StartSiteItem(Index), true);
        return;
      }
      if (game.gbGameOn) {
        shell.ShowMsg("Would you like to abandon your current game and start a new one with " +
                          NumText(int64_t{Index}) + " sites already hit?",
                      MsgButtons::YesNo, "Change Starting Site Number", "comp-abort game.mp3");
        bNewGame = shell.gnMsgReturn == MsgAnswer::Yes;
      }
      shell.PlaySound("comp-option change.mp3");
    }
    for (int16_t i = 0; i <= 9; ++i) frmMain.SetMenuChecked(StartSiteItem(i), i == Index);
    opts.Current().nStartSite = Index;
    if (dbg.On()) dbg.DebugWrite(Trace("frmMain.menStartSiteNum_Click").In("Index", Index).Var("bNewGame", bNewGame));
    if (bNewGame) engine.StartGame();
  });
}

// ---------------------------------------------------------------------------
// Debug

void MainMenu::menUseDL_Click() {
  Run("frmMain.menUseDL_Click", [this] {
    OptionProfile& op = opts.Current();
    const bool bOn = !op.bDebug;
    frmMain.SetMenuChecked(Menu::menUseDL, bOn);
    frmMain.SetMenuEnabled(Menu::menClearDL, bOn);
    frmMain.SetMenuEnabled(Menu::menMarkDL, bOn);
    if (!bOn) {
      dbg.DebugExit();
      opts.Current().bDebug = false;
      session.DebugClose();
      return;
    }
    op.bDebug = true;
    session.DebugOpen(false, true);
    if (opts.Current().bDebug) {
      dump.DebugWriteAll();
      shell.PlaySound("comp-option change.mp3");
    }
  });
}

void MainMenu::menClearDL_Click() {
  Run("frmMain.menClearDL_Click", [this] {
    session.DebugClear();
    shell.PlaySound("powerup2.mp3");
  });
}

void MainMenu::menMarkDL_Click() {
  Run("frmMain.menMarkDL_Click", [this] { mark.Show(); });
}

// ---------------------------------------------------------------------------
// Help

void MainMenu::menHelpFile_Click() {
  // The help opens on the help key, wherever it is pressed.
  frmMain.SendKeys("{F1}");
}

void MainMenu::menAbout_Click() {
  Run("frmMain.menAbout_Click", [this] {
    const std::string nl = "\n";
    shell.ShowMsg("Skitterweb" + nl + "Version " + DebugLog::kVersion + nl + nl + "Written by the Skitterweb team." +
                      nl + "Built from the Skitterweb sources." + nl + nl +
                      "Thanks to everyone who played the early versions" + nl +
                      "and to the makers of the old chase games that inspired it.",
                  MsgButtons::OkOnly, "About Skitterweb", "comp-program start.mp3");
  });
}

void MainMenu::menCredits_Click() {
  Run("frmMain.menCredits_Click", [this] {
    const std::string nl = "\n";
    const std::string dots = " . . . . . . ";
    const std::string team = "the Skitterweb team";
    shell.ShowMsg("--Game Development--" + nl + "Design and programming" + dots + team + nl + "Original game" + dots +
                      team + nl + "Help file" + dots + team + nl + "Cipher code" + dots + team + nl +
                      "Progress bar object" + dots + team + nl + nl + "--Art--" + nl +
                      "Mouse, dead mouse and infected server" + dots + team + nl + "Virus art" + dots + team + nl + nl +
                      "--Sound--" + nl + "Computer voice" + dots + team,
                  MsgButtons::OkOnly, "Credits for Skitterweb", "jad0025a3.mp3");
  });
}

}  // namespace sw
