#include "runtime/Options.h"

#include <algorithm>

#include "runtime/Checked.h"
#include "runtime/RuntimeError.h"

namespace sw {

const CommandField kCommandFields[17] = {
    {"CPMoveUp", &ControlProfile::CPMoveUp, "Move Up"},
    {"CPMoveUpRight", &ControlProfile::CPMoveUpRight, "Move Up Right"},
    {"CPMoveRight", &ControlProfile::CPMoveRight, "Move Right"},
    {"CPMoveDownRight", &ControlProfile::CPMoveDownRight, "Move Down Right"},
    {"CPMoveDown", &ControlProfile::CPMoveDown, "Move Down"},
    {"CPMoveDownLeft", &ControlProfile::CPMoveDownLeft, "Move Down Left"},
    {"CPMoveLeft", &ControlProfile::CPMoveLeft, "Move Left"},
    {"CPMoveUpLeft", &ControlProfile::CPMoveUpLeft, "Move Up Left"},
    {"CPWait", &ControlProfile::CPWait, "Wait"},
    {"CPPause", &ControlProfile::CPPause, "Pause"},
    {"CPAntiVirus", &ControlProfile::CPAntiVirus, "Anti Virus"},
    {"CPReboot", &ControlProfile::CPReboot, "Reboot"},
    {"CPBackup", &ControlProfile::CPBackup, "Backup"},
    {"CPRestore", &ControlProfile::CPRestore, "Restore"},
    {"CPSoftUpgrade", &ControlProfile::CPSoftUpgrade, "Software Upgrade"},
    {"CPDedLine", &ControlProfile::CPDedLine, "Dedicated Line"},
    {"CPLink", &ControlProfile::CPLink, "Link"},
};

namespace {
constexpr int16_t kTab = 9, kEnter = 13, kSpace = 32;
constexpr int16_t K(char c) { return static_cast<int16_t>(c); }
using S = Setting;
using OP = OptionProfile;
constexpr const char* kNumberPad = "Number Pad (Default)";
}  // namespace

// Fields in profile order: up, up-right, right, down-right, down, down-left, left,
// up-left, wait, pause, anti-virus, reboot, backup, restore, soft upgrade, dedicated line, link.
const ControlProfile kBuiltInProfiles[4] = {
    {kNumberPad, K('8'), K('9'), K('6'), K('3'), K('2'), K('1'), K('4'), K('7'), K('0'), K('5'), K('a'), K('e'), K('b'),
     K('r'), K('s'), K('d'), K('+')},
    {"Keyboard Left", K('e'), K('r'), K('f'), K('c'), K('x'), K('z'), K('s'), K('w'), kTab, K('d'), K('1'), K('2'),
     K('3'), K('4'), K('5'), K('6'), kSpace},
    {"Keyboard Right", K('o'), K('p'), K(';'), K('/'), K('.'), K(','), K('k'), K('i'), kTab, K('l'), K('1'), K('2'),
     K('q'), K('w'), K('3'), K('e'), kEnter},
    {"Old School (larn)", K('k'), K('u'), K('l'), K('n'), K('j'), K('b'), K('h'), K('y'), K('/'), K('.'), K('6'),
     K('7'), K('8'), K('9'), K('0'), K('-'), K('p')},
};

// The trailing numbers are each setting's place among the corrections named in the
// out-of-range message, and among the state dump's options lines.
constexpr Setting kSettings[13] = {
    S::TextOf("UserName", &OP::szUserName, "Guest").Dump("Player Name", 1),
    S::TextOf("Password", &OP::szPassword, nullptr).Dump("Password", 2),
    S::IntegerOf("ControlProfileNum", &OP::nProfile, 1).Range(0, kLastProfile, "Control profile", 4),
    S::TextOf("ControlProfileName", &OP::szProfile, kNumberPad).FromCurrentPlayer(),
    S::ProfilesOf("ControlProfileBegin"),
    S::FlagOf("Debug", &OP::bDebug, false),
    S::IntegerOf("Diff", &OP::nDiff, 2).Range(1, 4, "Difficulty", 1).Dump("Difficulty", 6),
    S::FlagOf("Grid", &OP::bGrid, true).Dump("Grid", 4),
    S::FlagOf("Sound", &OP::bSound, true).Dump("Sound", 3),
    S::IntegerOf("StartSite", &OP::nStartSite, 0).Range(0, 9, "Starting site", 3).Dump("Starting Site", 5),
    S::IntegerOf("MapSize", &OP::nMapSize, 3).Range(1, 5, "Map size", 2).Dump("Map Size", 7),
    S::FlagOf("DownServers", &OP::bDownServers, false).Dump("Down Servers", 8),
    S::FlagOf("Safe", &OP::bSafe, false).Dump("Safe Mode", 9),
};

namespace {
// Each order numbers its settings 1, 2, 3 ... with none left out and none twice.
constexpr bool EachPlaceOnce(int Setting::*place) {
  unsigned seen = 0, n = 0;
  for (const Setting& s : kSettings)
    if (s.*place != 0) seen |= 1u << s.*place, ++n;
  return seen == (2u << n) - 2u;
}
static_assert(EachPlaceOnce(&Setting::dumpAt) && EachPlaceOnce(&Setting::fixAt));
}  // namespace

std::vector<const Setting*> SettingsBy(int Setting::*place) {
  std::vector<const Setting*> in;
  for (const Setting& s : kSettings)
    if (s.*place != 0) in.push_back(&s);
  std::sort(in.begin(), in.end(), [place](const Setting* a, const Setting* b) { return a->*place < b->*place; });
  return in;
}

const Setting* SettingFor(const std::string& key) {
  for (const Setting& s : kSettings)
    if (key == s.key) return &s;
  return nullptr;
}

Options::Options() { ResetToGuest(); }

OptionProfile& Options::Current() { return Element(gopOpts, CLng(gnOpt)); }

const OptionProfile& Options::Current() const { return const_cast<Options*>(this)->Current(); }

bool Options::DebugOn() const {
  try {
    return static_cast<bool>(Current().bDebug);
  } catch (const RuntimeError&) {
    return false;
  }
}

int16_t Options::CheckedDiff() const {
  const int16_t nDiff = Current().nDiff;
  if (nDiff < 1 || nDiff > 4) throw RuntimeError(errSubscript);
  return nDiff;
}

const ControlProfile& Options::CurrentKeys() const {
  const OptionProfile& op = Current();
  return Element(op.cpProfile, op.nProfile);
}

void Options::InitControlProfiles(std::vector<ControlProfile>& cpProfile) {
  cpProfile.assign(5, ControlProfile{});
  for (size_t i = 0; i < 4; ++i) cpProfile[i + 1] = kBuiltInProfiles[i];
}

void Options::InitOptionProfile(OptionProfile& op) {
  for (const Setting& s : kSettings) {
    switch (s.kind) {
      // The built-in profiles always go to the last record; both callers pass it.
      case SettingKind::Profiles: InitControlProfiles(gopOpts.at(static_cast<size_t>(gnOptMax)).cpProfile); break;
      case SettingKind::Text:
        if (s.textDefault != nullptr) op.*s.text = s.textDefault;
        break;
      case SettingKind::Integer: op.*s.number = s.numberDefault; break;
      case SettingKind::Flag: op.*s.flag = s.flagDefault; break;
    }
  }
}

void Options::ResetToGuest() {
  gnOpt = 0;
  gnOptMax = 0;
  gopOpts.assign(1, OptionProfile{});
  InitOptionProfile(gopOpts[0]);
}

}  // namespace sw
