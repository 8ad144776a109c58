#pragma once
// Per-player option profiles and their control profiles (named key maps).
#include <cstdint>
#include <string>
#include <vector>

#include "runtime/Flag.h"

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
  const char* name;  // "CPMoveUp": the field, and its key in the options file
  int16_t ControlProfile::*field;
  const char* label;  // "Move Up": how the state dump names the command
};
extern const CommandField kCommandFields[17];

// One player's settings.
struct OptionProfile {
  std::string szUserName;
  std::string szPassword;
  int16_t nProfile = 0;
  std::string szProfile;
  std::vector<ControlProfile> cpProfile;  // index 0 temporary, 1-4 built in, 5+ saved
  Flag bDebug;
  int16_t nDiff = 0;
  Flag bGrid;
  Flag bSound;
  int16_t nStartSite = 0;
  int16_t nMapSize = 0;
  Flag bDownServers;
  Flag bSafe;

  bool operator==(const OptionProfile&) const = default;
};

// The four built-in control profiles, indices 1 to 4 of every record.
extern const ControlProfile kBuiltInProfiles[4];

// How a setting is kept: as text, as a 16-bit integer, as a flag (-1 true, 0 false),
// or the record's own control profiles.
enum class SettingKind : uint8_t { Text, Integer, Flag, Profiles };

// One setting of a player's record: its key in the options file, its member, its kind,
// a fresh record's value, the range a loaded value must lie in, and its line in the state dump.
struct Setting {
  const char* key;
  SettingKind kind;
  std::string OptionProfile::*text = nullptr;  // Text
  int16_t OptionProfile::*number = nullptr;    // Integer
  Flag OptionProfile::*flag = nullptr;         // Flag
  const char* textDefault = nullptr;           // Text: nullptr leaves a fresh record's value as it is
  int16_t numberDefault{};
  bool flagDefault{};
  // The options file gives every record the current player's value (the profile name).
  bool savedFromCurrentPlayer = false;
  // A loaded value outside lo..hi is named in one message, by fixName, and replaced by the
  // default; the message names the settings in the order of fixAt (0: no range).
  int16_t lo = 0, hi = 0;
  const char* fixName = nullptr;
  int fixAt = 0;
  // The state dump's label, in the order of dumpAt (0: not among the dump's options lines).
  const char* dumpLabel = nullptr;
  int dumpAt = 0;

  // Row builders for the table.
  static constexpr Setting TextOf(const char* key, std::string OptionProfile::*m, const char* byDefault) {
    return {.key = key, .kind = SettingKind::Text, .text = m, .textDefault = byDefault};
  }
  static constexpr Setting IntegerOf(const char* key, int16_t OptionProfile::*m, int16_t byDefault) {
    return {.key = key, .kind = SettingKind::Integer, .number = m, .numberDefault = byDefault};
  }
  static constexpr Setting FlagOf(const char* key, Flag OptionProfile::*m, bool byDefault) {
    return {.key = key, .kind = SettingKind::Flag, .flag = m, .flagDefault = byDefault};
  }
  static constexpr Setting ProfilesOf(const char* key) { return {.key = key, .kind = SettingKind::Profiles}; }
  constexpr Setting Range(int16_t from, int16_t to, const char* name, int at) const {
    Setting s = *this;
    s.lo = from;
    s.hi = to;
    s.fixName = name;
    s.fixAt = at;
    return s;
  }
  constexpr Setting Dump(const char* label, int at) const {
    Setting s = *this;
    s.dumpLabel = label;
    s.dumpAt = at;
    return s;
  }
  constexpr Setting FromCurrentPlayer() const {
    Setting s = *this;
    s.savedFromCurrentPlayer = true;
    return s;
  }
};

// A range's upper end that stands for the record's last control profile.
constexpr int16_t kLastProfile = -1;

// Every setting of a player's record, once, in record order (the order the options file
// writes them): the file's reader and writer, a fresh record's defaults, the corrections of
// a loaded file and the state dump all walk it.
extern const Setting kSettings[13];
// The settings that have a place in an order (&Setting::dumpAt or &Setting::fixAt), in it.
std::vector<const Setting*> SettingsBy(int Setting::*place);
// The setting a file key names, or nullptr.
const Setting* SettingFor(const std::string& key);

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
