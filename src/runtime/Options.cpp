#include "runtime/Options.h"

#include "runtime/Checked.h"
#include "runtime/RuntimeError.h"

namespace sw {

const CommandField kCommandFields[17] = {
    {"CPMoveUp", &ControlProfile::CPMoveUp},
    {"CPMoveUpRight", &ControlProfile::CPMoveUpRight},
    {"CPMoveRight", &ControlProfile::CPMoveRight},
    {"CPMoveDownRight", &ControlProfile::CPMoveDownRight},
    {"CPMoveDown", &ControlProfile::CPMoveDown},
    {"CPMoveDownLeft", &ControlProfile::CPMoveDownLeft},
    {"CPMoveLeft", &ControlProfile::CPMoveLeft},
    {"CPMoveUpLeft", &ControlProfile::CPMoveUpLeft},
    {"CPWait", &ControlProfile::CPWait},
    {"CPPause", &ControlProfile::CPPause},
    {"CPAntiVirus", &ControlProfile::CPAntiVirus},
    {"CPReboot", &ControlProfile::CPReboot},
    {"CPBackup", &ControlProfile::CPBackup},
    {"CPRestore", &ControlProfile::CPRestore},
    {"CPSoftUpgrade", &ControlProfile::CPSoftUpgrade},
    {"CPDedLine", &ControlProfile::CPDedLine},
    {"CPLink", &ControlProfile::CPLink},
};

namespace {
constexpr int16_t kTab = 9, kEnter = 13, kSpace = 32;
constexpr int16_t K(char c) { return static_cast<int16_t>(c); }
}  // namespace

// Fields in profile order: up, up-right, right, down-right, down, down-left, left,
// up-left, wait, pause, anti-virus, reboot, backup, restore, soft upgrade, dedicated line, link.
const ControlProfile kBuiltInProfiles[4] = {
    {"Number Pad (Default)", K('8'), K('9'), K('6'), K('3'), K('2'), K('1'), K('4'), K('7'), K('0'), K('5'), K('a'),
     K('e'), K('b'), K('r'), K('s'), K('d'), K('+')},
    {"Keyboard Left", K('e'), K('r'), K('f'), K('c'), K('x'), K('z'), K('s'), K('w'), kTab, K('d'), K('1'), K('2'),
     K('3'), K('4'), K('5'), K('6'), kSpace},
    {"Keyboard Right", K('o'), K('p'), K(';'), K('/'), K('.'), K(','), K('k'), K('i'), kTab, K('l'), K('1'), K('2'),
     K('q'), K('w'), K('3'), K('e'), kEnter},
    {"Old School (larn)", K('k'), K('u'), K('l'), K('n'), K('j'), K('b'), K('h'), K('y'), K('/'), K('.'), K('6'),
     K('7'), K('8'), K('9'), K('0'), K('-'), K('p')},
};

Options::Options() { ResetToGuest(); }

OptionProfile& Options::Current() {
  const int32_t i = CLng(gnOpt);
  if (i < 0 || static_cast<size_t>(i) >= gopOpts.size()) throw RuntimeError(errSubscript);
  return gopOpts[static_cast<size_t>(i)];
}

const OptionProfile& Options::Current() const { return const_cast<Options*>(this)->Current(); }

bool Options::DebugOn() const {
  try {
    return Current().bDebug != 0;
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
  if (op.nProfile < 0 || static_cast<size_t>(op.nProfile) >= op.cpProfile.size()) throw RuntimeError(errSubscript);
  return op.cpProfile[static_cast<size_t>(op.nProfile)];
}

void Options::InitControlProfiles(std::vector<ControlProfile>& cpProfile) {
  cpProfile.assign(5, ControlProfile{});
  for (size_t i = 0; i < 4; ++i) cpProfile[i + 1] = kBuiltInProfiles[i];
}

void Options::InitOptionProfile(OptionProfile& op) {
  // The built-in profiles always go to the last record; both callers pass it.
  InitControlProfiles(gopOpts.at(static_cast<size_t>(gnOptMax)).cpProfile);
  op.szUserName = "Guest";
  op.nProfile = 1;
  op.szProfile = gopOpts.at(static_cast<size_t>(gnOptMax)).cpProfile[1].szName;
  op.bDebug = 0;
  op.nDiff = 2;
  op.bGrid = -1;
  op.bSound = -1;
  op.nStartSite = 0;
  op.nMapSize = 3;
  op.bDownServers = 0;
  op.bSafe = 0;
}

void Options::ResetToGuest() {
  gnOpt = 0;
  gnOptMax = 0;
  gopOpts.assign(1, OptionProfile{});
  InitOptionProfile(gopOpts[0]);
}

}  // namespace sw
