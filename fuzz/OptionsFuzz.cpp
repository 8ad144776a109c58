// Feeds arbitrary bytes to the options reader as the bytes of "sw.opt", in memory. After loading, the
// table is either the lone default guest (the file was refused) or a whole
// table whose current player exists; what was loaded saves and loads back.
#include <cstdint>
#include <string>

#include "FuzzSupport.h"
#include "Skitterweb.h"
#include "runtime/Checked.h"
#include "runtime/NumText.h"
#include "runtime/RuntimeError.h"
#include "support/FakeWindow.h"

namespace {

using namespace sw;

bool IsDefaultGuest(const Options& o) {
  test::FakeWindow w;
  Skitterweb fresh(w);
  return o.gopOpts.size() == 1 && o.gnOptMax == 0 && o.gnOpt == 0.0 && o.gopOpts[0] == fresh.opts.gopOpts[0];
}

bool HasLoadError(const test::FakeWindow& w) {
  for (const auto& m : w.messages)
    if (m.szTitle == "Error: LoadOptions") return true;
  return false;
}

bool CurrentExists(const Options& o) {
  try {
    (void)o.Current();
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

bool Quoted(const std::string& s) { return s.find('"') != std::string::npos; }

// The record index a saved gnOpt comes back as, or -1 when it has none.
int64_t IndexOf(double gnOpt) {
  try {
    return CLng(gnOpt);
  } catch (const RuntimeError&) {
    return -1;
  }
}

void CheckShape(const Options& o) {
  fuzz::Check(o.gnOptMax >= 0, "gnOptMax is not negative");
  fuzz::Check(static_cast<size_t>(o.gnOptMax) + 1 == o.gopOpts.size(), "gnOptMax + 1 == records");
  fuzz::Check(o.gopOpts[0].cpProfile.size() >= 5, "the guest keeps its control profiles");
  fuzz::Check(o.gopOpts.back().cpProfile.size() >= 5, "the last record is a full record");
  for (const OptionProfile& op : o.gopOpts) {
    // A record is either blank (skipped by a gap) or has at least the five standard profiles.
    fuzz::Check(op.cpProfile.empty() || op.cpProfile.size() >= 5, "control-profile list shape");
    if (op.cpProfile.size() >= 5)
      for (int i = 1; i <= 4; ++i)
        fuzz::Check(op.cpProfile[static_cast<size_t>(i)] == kBuiltInProfiles[i - 1], "built-in profiles untouched");
  }
}

void CheckRoundTrip(Skitterweb& sw) {
  const Options& o = sw.opts;
  std::string text;
  try {
    text = sw.optsFile.OptionsText();
  } catch (const RuntimeError&) {
    fuzz::Check(false, "a loaded table saves");
  }
  test::FakeWindow w;
  Skitterweb again(w);
  again.optsFile.LoadOptionsFrom(text);
  const Options& r = again.opts;
  if (HasLoadError(w)) {
    // Only the text form of gnOpt may move it to another record (" 1.5" from 1.4999999999999999).
    fuzz::Check(IndexOf(Val(Str(o.gnOpt))) != IndexOf(o.gnOpt), "a saved table loads back");
    return;
  }
  fuzz::Check(r.gnOptMax == o.gnOptMax, "same number of records");
  const std::string& current = o.Current().szProfile;
  for (size_t i = 1; i < o.gopOpts.size(); ++i) {
    const OptionProfile& a = o.gopOpts[i];
    const OptionProfile& b = r.gopOpts[i];
    if (a.cpProfile.empty()) continue;  // a blank record comes back as a default one
    if (!Quoted(a.szUserName)) fuzz::Check(a.szUserName == b.szUserName, "UserName");
    if (!Quoted(a.szPassword)) fuzz::Check(a.szPassword == b.szPassword, "Password");
    if (!Quoted(current)) fuzz::Check(b.szProfile == current, "every record gets the current profile name");
    // The debug flag is left out: a log that fails to open clears it.
    for (const Setting& s : kSettings) {
      if (s.number != nullptr) fuzz::Check(a.*s.number == b.*s.number, s.key);
      if (s.flag != nullptr && s.flag != &OptionProfile::bDebug) fuzz::Check(a.*s.flag == b.*s.flag, s.key);
    }
    fuzz::Check(a.cpProfile.size() == b.cpProfile.size(), "saved profiles count");
    for (size_t j = 5; j < a.cpProfile.size(); ++j) {
      ControlProfile x = a.cpProfile[j], y = b.cpProfile[j];
      if (Quoted(x.szName)) x.szName = y.szName;
      fuzz::Check(x == y, "saved profile");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const bool ready = fuzz::EnterPrivateDir();
  (void)ready;
  {
    test::FakeWindow w;
    Skitterweb sw(w);
    sw.optsFile.LoadOptionsFrom(std::string(reinterpret_cast<const char*>(data), size));
    Options& o = sw.opts;
    fuzz::Check(w.messages.size() <= 2, "at most two messages");
    CheckShape(o);
    if (HasLoadError(w)) {
      fuzz::Check(IsDefaultGuest(o), "a refused file leaves the default guest");
    } else {
      fuzz::Check(CurrentExists(o), "the current player exists after a good load");
      for (const test::ShownMsg& m : w.messages)
        fuzz::Check(m.szTitle == "Error: DebugOpen" || m.szTitle == "Options Out of Range",
                    "only the debug-log and settings messages");
      // Every record is saved by the same code, so a small table shows the round trip as well as a
      // large one; saving and reloading hundreds of records would only slow the run.
      if (o.gnOptMax <= 32) CheckRoundTrip(sw);
    }
  }
  fuzz::RemoveFile(DebugLog::kFileName);
  return 0;
}
