// The webmaster lists file "SWhscore.dat": the plain list text, enciphered
// with the key "tinfoil" and made printable, on one line.
#include <new>

#include "debuglog/DebugLog.h"
#include "game/Shell.h"
#include "debuglog/DebugLog.h"
#include "game/GameState.h"
#include "game/Shell.h"
#include "options/Options.h"
#include "scoring/Score.h"
#include "runtime/Checked.h"
#include "runtime/Files.h"
#include "runtime/NumText.h"
#include "runtime/RuntimeError.h"
#include "runtime/WriteList.h"
#include "scoring/Cipher.h"
#include "scoring/HighScores.h"

namespace sw {

namespace {

// A failure of the file: the temporary file removed (it is ours alone and never
// outlives the procedure that made it), the failure traced, then shown; the game goes on.
void FileFailed(DebugLog& dbg, Shell& shell, const std::string& szProc, const RuntimeError& err) {
  try {
    if (FileExists(HighScores::kTempName)) DeleteFile(HighScores::kTempName);
  } catch (const RuntimeError&) {
  }
  const std::string number = NumText(int64_t{err.Number()});
  if (dbg.On())
    dbg.DebugWrite(Trace(szProc).Note("Failed to open high score file - Error #" + number + " - " + err.Description()));
  shell.ShowMsg("Failed to open high score file\nError #" + number + " - " + err.Description(), 0,
                "Error: " + szProc, "powerup2.mp3");
}

}  // namespace

std::string HighScores::PlainText() const {
  std::string text;
  text.reserve(80 * 16);
  for (int nType = kPersonal; nType <= kAllTime; ++nType)
    for (int nDiff = 1; nDiff <= 4; ++nDiff)
      for (int nSlot = 1; nSlot <= 10; ++nSlot) {
        const WebmasterEntry& e = Entry(nType, nDiff, nSlot);
        text += WriteListLine({e.lScore, e.nSites, e.szName});
      }
  return text;
}

void HighScores::LoadHighScores() {
  try {
    if (dbg.On()) dbg.DebugWrite(Trace("LoadHighScores").In("File Name", kFileName));

    Cipher cipher;
    cipher.Text(ReadDataFile(kFileName));
    cipher.KeyString(kKey);
    cipher.Shrink();
    cipher.DoXor();

    // Print the plain text to the temporary file, then input the 80 entries from it.
    WriteFile(kTempName, cipher.Text() + "\r\n");
    ListReader in(ReadWholeFile(kTempName));
    for (int nType = kPersonal; nType <= kAllTime; ++nType)
      for (int nDiff = 1; nDiff <= 4; ++nDiff)
        for (int nSlot = 1; nSlot <= 10; ++nSlot) {
          WebmasterEntry& e = Entry(nType, nDiff, nSlot);
          e.lScore = CLng(in.ReadItem().Number());
          e.nSites = CInt(in.ReadItem().Number());
          e.szName = in.ReadItem().text;
        }
    DeleteFile(kTempName);
  } catch (const RuntimeError& err) {
    FileFailed(dbg, shell, "LoadHighScoresError", err);
  } catch (const std::bad_alloc&) {
    FileFailed(dbg, shell, "LoadHighScoresError", RuntimeError(7));
  }
}

void HighScores::WriteHighScores() {
  try {
    if (dbg.On()) dbg.DebugWrite(Trace("WriteHighScores").In("File Name", kFileName));

    WriteFile(kTempName, PlainText());
    Cipher cipher;
    cipher.Text(ReadWholeFile(kTempName));
    DeleteFile(kTempName);
    cipher.KeyString(kKey);
    cipher.DoXor();
    cipher.Stretch();

    // One printed line; the old file stays whole until the new one is complete.
    WriteFileAtomic(kFileName, cipher.Text() + "\r\n");
  } catch (const RuntimeError& err) {
    FileFailed(dbg, shell, "WriteHighScoresError", err);
  } catch (const std::bad_alloc&) {
    FileFailed(dbg, shell, "WriteHighScoresError", RuntimeError(7));
  }
}

}  // namespace sw
