// The options file "sw.opt": key/value write-list lines; records and their
// saved control profiles are recognised by marker keys, not by nesting.
#include <algorithm>
#include <array>
#include <iterator>
#include <new>
#include <string_view>

#include "debuglog/DebugLog.h"
#include "debuglog/DebugSession.h"
#include "options/OptionsFile.h"
#include "runtime/Checked.h"
#include "runtime/Files.h"
#include "runtime/MainWindow.h"
#include "runtime/NumText.h"
#include "runtime/Options.h"
#include "runtime/RuntimeError.h"
#include "runtime/Shell.h"
#include "runtime/WriteList.h"

namespace sw {

namespace {

// The seventeen key fields in the order the file lists them: alphabetical by name.
const std::array<CommandField, 17>& FileKeyOrder() {
  static const std::array<CommandField, 17> order = [] {
    std::array<CommandField, 17> a{};
    std::copy(std::begin(kCommandFields), std::end(kCommandFields), a.begin());
    std::ranges::sort(a, {}, [](const CommandField& f) { return std::string_view(f.name); });
    return a;
  }();
  return order;
}

// The key field a file key names, or none.
int16_t ControlProfile::*KeyField(const std::string& key) {
  for (const CommandField& f : kCommandFields)
    if (key == f.name) return f.field;
  return nullptr;
}

// The upper bound of a control-profile list; a record skipped by a gap has no list at all.
int16_t UpperBound(const std::vector<ControlProfile>& cp) {
  if (cp.empty()) throw RuntimeError(errSubscript);
  return I16(static_cast<int64_t>(cp.size()) - 1);
}

}  // namespace

OptionsFile::OptionsFile(Options& opts, DebugLog& dbg, DebugSession& session, Shell& shell, IMainWindow& frmMain)
    : opts(opts), dbg(dbg), session(session), shell(shell), frmMain(frmMain) {}

void OptionsFile::LoadOptions() {
  keepAside_ = false;
  Load([] { return ReadDataFile(Options::kFileName); });
}

void OptionsFile::LoadOptionsFrom(const std::string& bytes) {
  Load([&bytes] { return bytes; });
}

void OptionsFile::Load(const std::function<std::string()>& read) {
  // Any failure ends reading at once: the message, then everything loaded is discarded.
  auto recover = [this](const RuntimeError& err) {
    // A file that is there but did not load is kept aside before it is replaced.
    keepAside_ = FileExists(Options::kFileName);
    const std::string text = std::string("Error opening the options file (") + Options::kFileName +
                             ").  Default game option profile will be used." + "\n\n" + "Error (" +
                             NumText(int64_t{err.Number()}) + "): " + err.Description();
    // The message box plays its sound by the current player's settings; when that
    // player was never loaded, the guest's settings stand in.
    try {
      (void)opts.Current();
    } catch (const RuntimeError&) {
      opts.ResetToGuest();
    }
    shell.ShowMsg(text, MsgButtons::OkOnly, "Error: LoadOptions", "powerup2.mp3");
    opts.ResetToGuest();
  };

  try {
    ListReader in(read());
    int64_t nRec = 0;  // R: the current record
    int16_t nCP = 0;   // P: the current control profile; not reset when R changes

    while (!in.Eof()) {
      const std::vector<ListItem> items = in.ReadLine();
      if (items.size() < 2) throw RuntimeError(errInputPastEnd);
      const std::string& key = items[0].text;
      const ListItem& value = items[1];
      const double number = value.Number();
      const Flag flag = value.IsNumeric() && number != 0.0;
      auto integer = [&] { return CInt(number); };
      auto record = [&]() -> OptionProfile& { return Element(opts.gopOpts, nRec); };
      auto profile = [&]() -> ControlProfile& { return Element(record().cpProfile, nCP); };

      if (key == "Version") {
      } else if (key == "LastOption") {
        opts.gnOpt = number;
      } else if (key == "OptionNum") {
        nRec = integer();
        if (nRec > opts.gnOptMax) {
          // Records skipped by a gap stay blank; the new last one gets the defaults.
          opts.gopOpts.resize(static_cast<size_t>(nRec) + 1);
          opts.gnOptMax = static_cast<int16_t>(nRec);
          opts.InitOptionProfile(opts.gopOpts[static_cast<size_t>(nRec)]);
        }
      } else if (key == "CPName") {
        profile().szName = value.text;
      } else if (int16_t ControlProfile::*field = KeyField(key)) {
        const int16_t code = integer();
        profile().*field = code;
      } else if (const Setting* s = SettingFor(key)) {
        // The value is read before the record it goes to is looked up.
        switch (s->kind) {
          case SettingKind::Text: record().*s->text = value.text; break;
          case SettingKind::Flag: record().*s->flag = flag; break;
          case SettingKind::Integer: {
            const int16_t n = integer();
            record().*s->number = n;
            break;
          }
          case SettingKind::Profiles: {
            // Appended in file order whatever number the file gives.
            std::vector<ControlProfile>& cp = record().cpProfile;
            nCP = I16(int64_t{UpperBound(cp)} + 1);
            cp.resize(static_cast<size_t>(nCP) + 1);
            break;
          }
        }
      }
    }

    CorrectSettings();

    // The current player may not exist at all: that too ends in the recovery.
    if (opts.Current().bDebug) {
      session.DebugOpen(false, true);
      if (!opts.Current().bDebug) {
        shell.ShowMsg(std::string("Failed to open debug log") + "\n" + "Please check file I/O accessability",
                      MsgButtons::OkOnly, "Error: DebugOpen", "powerup2.mp3");
        return;
      }
      frmMain.SetMenuChecked(Menu::menUseDL, true);
      frmMain.SetMenuEnabled(Menu::menClearDL, true);
      frmMain.SetMenuEnabled(Menu::menMarkDL, true);
      dbg.DebugWrite(Trace("LoadOptions").Var("gnOpt", opts.gnOpt).Var("gnOptMax", opts.gnOptMax));
    }
  } catch (const RuntimeError& err) {
    recover(err);
  } catch (const std::bad_alloc&) {
    recover(RuntimeError(7));
  }
}

void OptionsFile::CorrectSettings() {
  // A setting out of its range would leave no board to play on, or a wait that
  // never ends: each one is named once, in one message, and its default used.
  std::string fixes;
  for (size_t i = 1; i < opts.gopOpts.size(); ++i) {
    OptionProfile& op = opts.gopOpts[i];
    if (op.cpProfile.empty()) continue;  // a record skipped by a numbering gap stays blank
    const std::string who = " of " + op.szUserName + ": ";
    for (const Setting* s : SettingsBy(&Setting::fixAt)) {
      int16_t& value = op.*s->number;
      const int16_t hi = s->hi == kLastProfile ? static_cast<int16_t>(op.cpProfile.size() - 1) : s->hi;
      if (value >= s->lo && value <= hi) continue;
      fixes += std::string("\n") + s->fixName + " " + NumText(int64_t{value}) + who +
               NumText(int64_t{s->numberDefault}) + " used";
      value = s->numberDefault;
      // A profile number put back names its profile too.
      if (s->number == &OptionProfile::nProfile) op.szProfile = op.cpProfile[static_cast<size_t>(op.nProfile)].szName;
    }
  }
  if (fixes.empty()) return;
  shell.ShowMsg(std::string("Some settings in the options file (") + Options::kFileName +
                    ") are out of range; their defaults are used instead:" + fixes,
                MsgButtons::OkOnly, "Options Out of Range", "powerup2.mp3");
}

std::string OptionsFile::OptionsText() const {
  std::string out;
  out += WriteListLine({"Version", "1.14"});
  out += WriteListLine({"LastOption", Str(opts.gnOpt)});
  for (size_t i = 1; i < opts.gopOpts.size(); ++i) {
    const OptionProfile& op = opts.gopOpts[i];
    out += WriteListLine({"OptionNum", static_cast<int64_t>(i)});
    for (const Setting& s : kSettings) {
      switch (s.kind) {
        case SettingKind::Text:
          out += WriteListLine({s.key, (s.savedFromCurrentPlayer ? opts.Current() : op).*s.text});
          break;
        case SettingKind::Integer: out += WriteListLine({s.key, op.*s.number}); break;
        case SettingKind::Flag: out += WriteListLine({s.key, (op.*s.flag).Code()}); break;
        case SettingKind::Profiles:
          // The temporary and the built-in profiles are never saved.
          for (size_t j = 5; j < op.cpProfile.size(); ++j) {
            const ControlProfile& cp = op.cpProfile[j];
            out += WriteListLine({s.key, static_cast<int64_t>(j)});
            out += WriteListLine({"CPName", cp.szName});
            for (const CommandField& f : FileKeyOrder()) out += WriteListLine({f.name, cp.*f.field});
          }
          break;
      }
    }
  }
  return out;
}

void OptionsFile::SaveOptions() {
  if (dbg.On()) {
    dbg.DebugWrite(Trace("SaveOptions")
                       .Var("gnOpt", opts.gnOpt)
                       .Var("UBound(gopOpts)", static_cast<int64_t>(opts.gopOpts.size()) - 1));
  }
  if (keepAside_) {
    KeepAside(Options::kFileName);
    keepAside_ = false;
  }
  // It holds passwords: readable by its owner only.
  WriteFileAtomic(Options::kFileName, OptionsText(), 0600);
}

}  // namespace sw
