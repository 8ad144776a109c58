#pragma once
// Per-player option profiles and their control profiles (named key maps).
#include <cstdint>
#include <string>
#include <vector>

namespace sw {

// One named key map: one character code per command, 0 for no key.
struct ControlProfile {
  std::string szName;
  int16_t CPMoveUp = 0;
  int16_t CPMoveUpRight = 0;
  int16_t CPMoveRight = 0;
  int16_t CPMoveDownRight = 0;
  int16_t CPMoveDown = 0;
  int16_t CPMoveDownLeft = 0;
  int16_t CPMoveLeft = 0;
  int16_t CPMoveUpLeft = 0;
  int16_t CPWait = 0;
  int16_t CPPause = 0;
  int16_t CPAntiVirus = 0;
  int16_t CPReboot = 0;
  int16_t CPBackup = 0;
  int16_t CPRestore = 0;
  int16_t CPSoftUpgrade = 0;
  int16_t CPDedLine = 0;
  int16_t CPLink = 0;

  bool operator==(const ControlProfile&) const = default;
};

// The seventeen commands, in profile order, with their field names.
struct CommandField {
  const char* name;  // "CPMoveUp"
  int16_t ControlProfile::*field;
};
extern const CommandField kCommandFields[17];

// One player's settings.
struct OptionProfile {
  std::string szUserName;
  std::string szPassword;
  int16_t nProfile = 0;
  std::string szProfile;
  std::vector<ControlProfile> cpProfile;  // index 0 temporary, 1-4 built in, 5+ saved
  int16_t bDebug = 0;
  int16_t nDiff = 0;
  int16_t bGrid = 0;
  int16_t bSound = 0;
  int16_t nStartSite = 0;
  int16_t nMapSize = 0;
  int16_t bDownServers = 0;
  int16_t bSafe = 0;

  bool operator==(const OptionProfile&) const = default;
};

// The four built-in control profiles, indices 1 to 4 of every record.
extern const ControlProfile kBuiltInProfiles[4];

class Options {
 public:
  Options();

  std::vector<OptionProfile> gopOpts;  // lower bound 0; record 0 is the guest
  double gnOpt = 0;                    // the current player: a loosely typed number
  int16_t gnOptMax = 0;

  // gopOpts(gnOpt): "Subscript out of range" (9) when no such record exists.
  OptionProfile& Current();
  const OptionProfile& Current() const;
  // True when the current record exists and its debug flag is set; never raises.
  bool DebugOn() const;
  // The current difficulty as an index into the per-difficulty tables:
  // "Subscript out of range" (9) outside 1 to 4.
  int16_t CheckedDiff() const;
  // The key map in use: gopOpts(gnOpt).cpProfile(gopOpts(gnOpt).nProfile).
  const ControlProfile& CurrentKeys() const;

  // Re-dimensions the array to 0..4: index 0 empty, 1-4 the built-in profiles.
  void InitControlProfiles(std::vector<ControlProfile>& cpProfile);
  // The defaults of a fresh record (the built-in profiles go to gopOpts(gnOptMax)).
  void InitOptionProfile(OptionProfile& op);
  // Start-up: gnOpt = 0, gnOptMax = 0, one guest record with the defaults.
  void ResetToGuest();

  // The options file (read and written by OptionsFile).
  static constexpr const char* kFileName = "sw.opt";
};

}  // namespace sw
