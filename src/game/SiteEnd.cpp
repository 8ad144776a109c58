// The end of a site: the mouse's death (a reconnect spent, or game over) and
// a site won.
#include "debuglog/DebugLog.h"
#include "game/Game.h"
#include "runtime/Checked.h"
#include "runtime/NumText.h"
#include "runtime/Shell.h"
#include "scoring/HighScoreDialog.h"
#include "scoring/Score.h"

namespace sw {

namespace {

std::string CauseText(DeathCause nCause) {
  switch (nCause) {
    case kWalkedOntoVirus: return "Poor little suicidal mouse! Lucky, lucky virus!";
    case kVirusReachedMouse: return "You have been infected by an skitterweb! Attempting to restore soul from backup.";
    case kWalkedOntoInfected: return "Walked right into that one, didn't you?";
    case kLinkedOntoVirus: return "That was a trapped link set up by those nasty viruses!  You are dead!";
    case kLinkedOntoInfected: return "That link lead you right to an infected site!  You are dead!";
    case kSleepingMouse: return "Sleeping mice make easy prey for those nasty little viruses!";
    default: return "You are one dead little mouse!";
  }
}

}  // namespace

void Game::PlayerDead(DeathCause nCause) {
  try {
    // Score news of this turn comes before the death.
    score.WriteScoreMesg();
    game.gbEndSite = true;

    DrawCell(game.gctPlayerPos, Picture::None);
    frmMain.Refresh();
    DrawCell(game.gctPlayerPos, Picture::Death);

    const std::string szCause = CauseText(nCause);
    game.gnReconnects = Sub16(game.gnReconnects, 1);

    if (dbg.On()) {
      dbg.DebugWrite(Trace("PlayerDead")
                         .In("nCause", nCause)
                         .Var("gbEndSite", game.gbEndSite)
                         .Var("gnReconnects", game.gnReconnects));
    }

    if (game.gnReconnects >= 0) {
      frmMain.SetCaption(Label::lblReconnects, NumText(int64_t{game.gnReconnects}));
      shell.ShowMsg(szCause + "\n" + "Life program re-initialized. You now have " +
                        NumText(int64_t{game.gnReconnects}) + " reconnects remaining. Get ready to try again!",
                    MsgButtons::OkOnly, "Player Died", "comp-dead.mp3");
      InitMap();
      return;
    }

    // No reconnect left: the game is over.
    frmMain.SetCaption(Label::lblReconnects, "-");
    shell.ShowMsg(szCause + "\n" + "Soul file irretrievable! Game Over!", MsgButtons::OkOnly, "Player Died",
                  "comp-game over.mp3");
    webmasters.CheckHighScore();
    game.gbGameOn = false;
    game.gbWaitOn = false;
    if (dbg.On()) {
      dbg.DebugWrite(Trace("PlayerDead")
                         .Note("game over: gbGameOn=" + NumText(int64_t{game.gbGameOn.Code()}) +
                               " gbWaitOn=" + NumText(int64_t{game.gbWaitOn.Code()})));
    }
    shell.ShowMsg("Would you like to play another game?", MsgButtons::YesNo, "Play again?", "comp-new game.mp3");
    if (shell.gnMsgReturn == MsgAnswer::Yes) StartGame();
  } catch (const RuntimeError& err) {
    shell.ReportError("PlayerDead", err);
  }
}

void Game::NewSite() {
  try {
    score.AddPoints(ScoreEvent::SiteHit);
  } catch (const RuntimeError& err) {
    // The site is won all the same: it is counted and the next one laid out.
    shell.ReportError("NewSite", err);
  }
  try {
    game.gnSitesHit = Add16(game.gnSitesHit, 1);
    // Score news (extra reconnects) comes before the site message.
    score.WriteScoreMesg();
    if (dbg.On()) dbg.DebugWrite(Trace("NewSite").Var("gnSitesHit", game.gnSitesHit));
    frmMain.SetCaption(Label::lblSitesHit, NumText(int64_t{game.gnSitesHit}));
    shell.ShowMsg("Congradulations!  You have eluded the viruses and hit site number " +
                      NumText(int64_t{game.gnSitesHit}) + "!" + "\n" + "Get ready for your next web search!",
                  MsgButtons::OkOnly, "Site Hit", "comp-level complete.mp3");
    InitMap();
  } catch (const RuntimeError& err) {
    shell.ReportError("NewSite", err);
  }
}

}  // namespace sw
