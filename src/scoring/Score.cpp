// Score events, site bonuses, extra reconnects and the queue of score messages.
#include "scoring/Score.h"

#include "debuglog/DebugLog.h"
#include "runtime/Checked.h"
#include "runtime/Difficulty.h"
#include "runtime/GameState.h"
#include "runtime/MainWindow.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/Shell.h"

namespace sw {

Score::Score(GameState& game, Options& opts, DebugLog& dbg, Shell& shell, IMainWindow& frmMain)
    : opts(opts), dbg(dbg), shell(shell), game(game), frmMain(frmMain) {
  InitTables();
}

void Score::InitTables() {
  for (size_t d = 1; d <= 4; ++d) {
    glScoreMod[d] = kDifficulties[d].nScoreMod;
    glExtraLifeBonus[d] = kDifficulties[d].lExtraLifeBonus;
  }
  glBasePoints = {0, 3, 20, 1, 2, 25, 45, 5, 1};
  gnScoreMesgNum = 0;
  gsmScoreMesg.assign(1, ScoreMesg{});
}

void Score::InitScore() {
  InitTables();  // the move count and the no-link mark start anew with each site
  if (dbg.On()) dbg.DebugWrite(Trace("InitScore").Var("gnScoreMesgNum", gnScoreMesgNum));
  SetPoints();
}

void Score::SetPoints() {
  try {
    const int16_t nDiff = opts.CheckedDiff();
    for (size_t i = 1; i <= 8; ++i) glPoints[i] = Mul32(glScoreMod[static_cast<size_t>(nDiff)], glBasePoints[i]);
    if (dbg.On()) {
      std::string list = "{ ";
      for (size_t i = 1; i <= 8; ++i) list += NumText(int64_t{glPoints[i]}) + " ";
      list += "}";
      dbg.DebugWrite(Trace("SetPoints")
                         .Var("gopOpts(gnOpt).nDiff", nDiff)
                         .Var("glScoreMod(gopOpts(gnOpt).nDiff)", glScoreMod[static_cast<size_t>(nDiff)])
                         .Var("glPoints(1-" + NumText(int64_t{8}) + ")", list));
    }
  } catch (const RuntimeError& err) {
    shell.ReportError("SetPoints", err);
  }
}

// No error handler here: an overflow passes to the caller.
void Score::AddPoints(ScoreEvent nEvent) {
  if (dbg.On()) dbg.DebugWrite(Trace("AddPoints").In("nEvent", nEvent).Var("original glScore", glScore));

  const int16_t nDiff = opts.CheckedDiff();
  const size_t d = static_cast<size_t>(nDiff);
  const int16_t n = static_cast<int16_t>(nEvent);
  const bool bValid = n >= 1 && n <= 8;
  int32_t lBonus = 0;

  if (!bValid) {
    shell.ShowMsg("Invalid score event [" + NumText(int64_t{n}) + "]", MsgButtons::OkOnly, "AddPoints Error", "");
  } else {
    switch (nEvent) {
      case ScoreEvent::VirusKilled:
      case ScoreEvent::Plain3:
      case ScoreEvent::Plain4:
        lBonus = glPoints[static_cast<size_t>(n)];
        glScore = Add32(glScore, lBonus);
        break;
      case ScoreEvent::SiteHit:
        // Grows with the sites already hit (the count before this one).
        lBonus = Add32(glPoints[2], Mul16(Mul16(glScoreMod[d], 2), game.gnSitesHit));
        glScore = Add32(glScore, lBonus);
        AddPoints(ScoreEvent::NoLinkBonus);
        AddPoints(ScoreEvent::FewMovesBonus);
        AddPoints(ScoreEvent::LowLagBonus);
        break;
      case ScoreEvent::NoLinkBonus:
        if (game.gbScoreNoLinkSite) {
          lBonus = glPoints[5];
          glScore = Add32(glScore, lBonus);
          shell.ShowMsg(std::string("Amazing!  You hit the site without having to link!") + "\n" + "Bonus " +
                            FormatThousands(lBonus) + " points awarded!",
                        MsgButtons::OkOnly, "Bonus Points", "jad0025a3.mp3");
        }
        break;
      case ScoreEvent::FewMovesBonus:
        if (game.gnMoveCount <= 8) {
          lBonus = CLng(static_cast<double>(Mul32(Sub16(10, game.gnMoveCount), glPoints[6])) / 9.0);
          glScore = Add32(glScore, lBonus);
          shell.ShowMsg("Good job!  You hit the site making only " + NumText(int64_t{game.gnMoveCount}) + " moves!" +
                            "\n" + "Bonus " + FormatThousands(lBonus) + " points awarded!",
                        MsgButtons::OkOnly, "Bonus Points", "jad0025a3.mp3");
        }
        break;
      case ScoreEvent::LowLagBonus:
        // Easy has no lag, so no low-lag bonus either.
        if (nDiff != 1) {
          switch (game.gbScoreMinLag) {
            case 1: lBonus = Mul32(8, glPoints[8]); break;
            case 2: lBonus = Mul32(4, glPoints[8]); break;
            case 3: lBonus = Mul32(2, glPoints[8]); break;
            default: lBonus = 0; break;
          }
          glScore = Add32(glScore, lBonus);
        }
        break;
      case ScoreEvent::Reserved: break;
    }
    frmMain.SetCaption(Label::lblScore, FormatThousands(glScore));
  }

  // At most one extra reconnect per call.
  std::string szExtraName;
  Value vExtra;
  if (glScore >= glNextExtraLife) {
    const int32_t lThreshold = glNextExtraLife;
    if (game.gnReconnects < 5) {
      game.gnReconnects = Add16(game.gnReconnects, 1);
      frmMain.SetCaption(Label::lblReconnects, NumText(int64_t{game.gnReconnects}));
      AddScoreMesg(std::string("Unbelieveable!  You have earned an extra reconnect!") + "\n" + "Keep going, webmaster!",
                   "comp-extra life.mp3", MsgButtons::OkOnly, "Extra Reconnect");
      szExtraName = "gnReconnects (bonus at score: " + FormatThousands(lThreshold) + ")";
      vExtra = game.gnReconnects;
    } else {
      // Worked out at 16 bits: on hard and nightmare this overflows.
      const int16_t nBonus = Mul16(glScoreMod[d], 1500);
      glScore = Add32(glScore, nBonus);
      frmMain.SetCaption(Label::lblScore, FormatThousands(glScore));
      AddScoreMesg(std::string("This is unheard of!  You have earned an extra reconnect but you already have the "
                               "maximum number of reconnects!") +
                       "\n" + "You get " + FormatThousands(nBonus) + " extra points instead!",
                   "comp-extra life.mp3", MsgButtons::OkOnly, "Extra Reconnect");
      szExtraName = "Extra reconnect bonus (bonus at score: " + NumText(int64_t{lThreshold}) + ")";
      vExtra = nBonus;
      // The bonus itself does not count toward the next threshold.
      glNextExtraLife = Add32(glNextExtraLife, nBonus);
    }
    glNextExtraLife = Add32(glNextExtraLife, glExtraLifeBonus[d]);
  }

  if (dbg.On()) {
    TraceRecord rec = Trace("AddPoints").In("nEvent", nEvent);
    if (bValid) rec.Var("lBonus", lBonus);
    if (!szExtraName.empty()) rec.Var(szExtraName, vExtra);
    dbg.DebugWrite(rec.Var("new glScore", glScore));
  }
}

void Score::AddScoreMesg(const std::string& szMesg, const std::string& szSound, MsgButtons msButtons,
                         const std::string& szTitle) {
  gnScoreMesgNum = Add16(gnScoreMesgNum, 1);
  gsmScoreMesg.resize(static_cast<size_t>(gnScoreMesgNum) + 1);
  ScoreMesg& m = gsmScoreMesg[static_cast<size_t>(gnScoreMesgNum)];
  m.szMesg = szMesg;
  m.msButtons = msButtons;
  m.szTitle = szTitle;
  m.szSound = szSound;
  if (dbg.On()) {
    dbg.DebugWrite(Trace("AddScoreMesg")
                       .In("szMesg", szMesg)
                       .In("msButtons", msButtons)
                       .In("szTitle", szTitle)
                       .Var("gnScoreMesgNum", gnScoreMesgNum)
                       .Note("szSound=" + szSound));
  }
}

void Score::WriteScoreMesg() {
  if (gnScoreMesgNum == 0) return;
  if (dbg.On()) dbg.DebugWrite(Trace("WriteScoreMesg").Var("gnScoreMesgNum", gnScoreMesgNum));
  // Take the queue first, so that it is empty whatever the boxes lead to.
  std::vector<ScoreMesg> queue;
  queue.swap(gsmScoreMesg);
  gnScoreMesgNum = 0;
  gsmScoreMesg.assign(1, ScoreMesg{});
  for (size_t i = 1; i < queue.size(); ++i) {
    const ScoreMesg& m = queue[i];
    shell.ShowMsg(m.szMesg, m.msButtons, m.szTitle, m.szSound);
  }
}

}  // namespace sw
