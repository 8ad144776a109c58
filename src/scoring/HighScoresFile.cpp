// The webmaster lists file "SWhscore.dat": the plain list text, enciphered
// with the key "tinfoil" and made printable, on one line.
#include <new>

#include "debuglog/DebugLog.h"
#include "runtime/Checked.h"
#include "runtime/Files.h"
#include "runtime/GameState.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Shell.h"
#include "runtime/WriteList.h"
#include "scoring/Cipher.h"
#include "scoring/HighScores.h"
#include "scoring/Score.h"

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
  shell.ShowMsg("Failed to open high score file\nError #" + number + " - " + err.Description(), MsgButtons::OkOnly,
                "Error: " + szProc, "powerup2.mp3");
}

}  // namespace

std::string HighScores::PlainText() const {
  std::string text;
  for (int nType = kPersonal; nType <= kAllTime; ++nType)
    for (int nDiff = 1; nDiff <= 4; ++nDiff)
      for (int nSlot = 1; nSlot <= 10; ++nSlot) {
        const WebmasterEntry& e = Entry(nType, nDiff, nSlot);
        text += WriteListLine({e.lScore, e.nSites, e.szName});
      }
  return text;
}

std::string HighScores::Decipher(const std::string& bytes) {
  Cipher cipher;
  cipher.Text(bytes);
  cipher.KeyString(kKey);
  cipher.Shrink();
  cipher.DoXor();
  return cipher.Text();
}

void HighScores::ReadEntries(const std::string& printed) {
  ListReader in(printed);
  for (int nType = kPersonal; nType <= kAllTime; ++nType)
    for (int nDiff = 1; nDiff <= 4; ++nDiff)
      for (int nSlot = 1; nSlot <= 10; ++nSlot) {
        WebmasterEntry& e = Entry(nType, nDiff, nSlot);
        e.lScore = CLng(in.ReadItem().Number());
        e.nSites = CInt(in.ReadItem().Number());
        e.szName = in.ReadItem().text;
      }
}

void HighScores::LoadFailed(const RuntimeError& err) {
  // A file that is there but did not load is kept aside before it is replaced.
  keepAside_ = FileExists(kFileName);
  FileFailed(dbg, shell, "LoadHighScoresError", err);
}

void HighScores::LoadHighScores() {
  keepAside_ = false;
  try {
    if (dbg.On()) dbg.DebugWrite(Trace("LoadHighScores").In("File Name", kFileName));
    const std::string plain = Decipher(ReadDataFile(kFileName));
    // Print the plain text to the temporary file, then input the 80 entries from it.
    WriteFile(kTempName, plain + "\r\n");
    ReadEntries(ReadWholeFile(kTempName));
    DeleteFile(kTempName);
  } catch (const RuntimeError& err) {
    LoadFailed(err);
  } catch (const std::bad_alloc&) {
    LoadFailed(RuntimeError(7));
  }
}

void HighScores::LoadHighScoresFrom(const std::string& bytes) {
  try {
    if (dbg.On()) dbg.DebugWrite(Trace("LoadHighScores").In("File Name", kFileName));
    ReadEntries(Decipher(bytes) + "\r\n");
  } catch (const RuntimeError& err) {
    LoadFailed(err);
  } catch (const std::bad_alloc&) {
    LoadFailed(RuntimeError(7));
  }
}

std::string HighScores::FileText() const {
  Cipher cipher;
  cipher.Text(PlainText());
  cipher.KeyString(kKey);
  cipher.DoXor();
  cipher.Stretch();
  return cipher.Text() + "\r\n";
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

    if (keepAside_) {
      KeepAside(kFileName);
      keepAside_ = false;
    }
    // One printed line; the old file stays whole until the new one is complete.
    WriteFileAtomic(kFileName, cipher.Text() + "\r\n");
  } catch (const RuntimeError& err) {
    FileFailed(dbg, shell, "WriteHighScoresError", err);
  } catch (const std::bad_alloc&) {
    FileFailed(dbg, shell, "WriteHighScoresError", RuntimeError(7));
  }
}

}  // namespace sw
