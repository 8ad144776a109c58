#pragma once
// The "Controls" dialog's state and behaviour: the keys of the current control
// profile laid out like a number pad, typed or picked (a key taken by another
// command is swapped, never duplicated), profiles picked, saved and deleted.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace sw {

class Options;
class DebugLog;
class Shell;
class SelectDialog;
class IMainWindow;
struct ControlProfile;

class CommandListDialog {
 public:
  static constexpr const char* kCaption = "Controls";
  static constexpr const char* kTemporary = "(Temporary)";

  // One key combo: its text, the special key selected in its list (-1 none),
  // and the text it showed before the current change.
  struct KeyCombo {
    std::string text;
    int16_t nListIndex = -1;
    std::string tag;
  };
  // What combo i (0 to 10, laid out like a number pad) edits.
  struct KeyField {
    const char* szLabel;
    const char* szTip;
    int16_t ControlProfile::*field;
  };
  static const std::array<KeyField, 11> kKeys;
  // The named keys of every combo's list, and their codes.
  static constexpr std::array<const char*, 5> kSpecialNames = {"Enter", "Backspace", "Space", "Escape", "Tab"};
  static constexpr std::array<int16_t, 5> kSpecialCodes = {13, 8, 32, 27, 9};

  CommandListDialog(Options& opts, DebugLog& dbg, Shell& shell, SelectDialog& select, IMainWindow& frmMain);

  // ---- the controls' state
  std::vector<std::string> cmbProfileItems;  // profiles 1 upward
  int16_t nProfileIndex = -1;                // cmbProfile's selection, -1 none
  std::array<KeyCombo, 11> cmbKey;
  bool bSaveEnabled = false;
  bool bDelEnabled = false;
  bool bChanged = false;  // keys were changed in this visit
  bool bShown = false;

  // Opens the dialog modally over the main window.
  void Show();

  // ---- the dialog's events
  void Form_Activate();
  // Combo i's text changed to text (typed, or an item picked: nListIndex >= 0).
  void cmbKey_Change(int16_t i, const std::string& text, int16_t nListIndex = -1);
  void cmbKey_LostFocus(int16_t i);
  void cmbProfile_Click(int16_t nIndex);
  void cmdSaveProfile_Click();
  void cmdDelProfile_Click();
  void cmdOK_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();

  // ---- the procedures of the form
  void SetCmbKey(int16_t i, int16_t code);
  int16_t GetCmbKey(int16_t i) const;
  void SaveKeys(ControlProfile& cp);

 private:
  void ShowKeys();
  // Switches the player to the temporary profile after a key change.
  void KeysChanged();

  Options& opts;
  DebugLog& dbg;
  Shell& shell;
  SelectDialog& select;
  IMainWindow& frmMain;
  bool bShowingKeys_ = false;
  int16_t nProfileAtOpen_ = 0;
  std::string szProfileAtOpen_;
};

}  // namespace sw
