#include "options/CommandListDialog.h"

#include <algorithm>
#include <cctype>

#include "debuglog/DebugLog.h"
#include "options/SelectDialog.h"
#include "runtime/MainWindow.h"
#include "runtime/Options.h"
#include "runtime/Shell.h"

namespace sw {

namespace {

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return s;
}

int16_t SpecialIndex(const std::string& text) {
  for (size_t k = 0; k < CommandListDialog::kSpecialNames.size(); ++k)
    if (text == CommandListDialog::kSpecialNames[k]) return static_cast<int16_t>(k);
  return -1;
}

}  // namespace

const std::array<CommandListDialog::KeyField, 11> CommandListDialog::kKeys = {{
    {"Link:", "Select or type a key to randomly link to another server", &ControlProfile::CPLink},
    {"Down/Left:", "Select or type a key to move diagonally down/left", &ControlProfile::CPMoveDownLeft},
    {"Down:", "Select or type a key to move down", &ControlProfile::CPMoveDown},
    {"Down/Right:", "Select or type a key to move diagonally down/right", &ControlProfile::CPMoveDownRight},
    {"Left:", "Select or type a key to move left", &ControlProfile::CPMoveLeft},
    {"Pause:", "Select or type a key to pause for one turn", &ControlProfile::CPPause},
    {"Right:", "Select or type a key to move right", &ControlProfile::CPMoveRight},
    {"Up/Left:", "Select or type a key to move diagonally up/left", &ControlProfile::CPMoveUpLeft},
    {"Up:", "Select or type a key to move up", &ControlProfile::CPMoveUp},
    {"Up/Right:", "Select or type a key to move diagonally up/right", &ControlProfile::CPMoveUpRight},
    {"Wait:", "Select or type a key to wait until end of level", &ControlProfile::CPWait},
}};

CommandListDialog::CommandListDialog(Options& opts, DebugLog& dbg, Shell& shell, SelectDialog& select,
                                     IMainWindow& frmMain)
    : opts(opts), dbg(dbg), shell(shell), select(select), frmMain(frmMain) {}

void CommandListDialog::Show() {
  const OptionProfile& op = opts.Current();
  nProfileAtOpen_ = op.nProfile;
  szProfileAtOpen_ = op.szProfile;
  bChanged = false;
  bSaveEnabled = false;
  Form_Activate();
  bShown = true;
  frmMain.ShowDialog(Dialog::frmCommandList);  // back once its own buttons have closed it
}

void CommandListDialog::Form_Activate() {
  const OptionProfile& op = opts.Current();
  cmbProfileItems.clear();
  for (size_t k = 1; k < op.cpProfile.size(); ++k) cmbProfileItems.push_back(op.cpProfile[k].szName);
  nProfileIndex = static_cast<int16_t>(op.nProfile - 1);
  bDelEnabled = op.nProfile >= 5;
  ShowKeys();
}

void CommandListDialog::ShowKeys() {
  const ControlProfile& cp = opts.CurrentKeys();
  for (int16_t i = 0; i <= 10; ++i) SetCmbKey(i, cp.*kKeys[static_cast<size_t>(i)].field);
}

void CommandListDialog::SetCmbKey(int16_t i, int16_t code) {
  bShowingKeys_ = true;
  KeyCombo& c = cmbKey[static_cast<size_t>(i)];
  c.nListIndex = -1;
  for (size_t k = 0; k < kSpecialCodes.size(); ++k)
    if (kSpecialCodes[k] == code) c.nListIndex = static_cast<int16_t>(k);
  c.text = c.nListIndex >= 0 ? kSpecialNames[static_cast<size_t>(c.nListIndex)]
                             : std::string(1, static_cast<char>(std::toupper(code & 0xFF)));
  c.tag = c.text;
  bShowingKeys_ = false;
  if (dbg.On()) {
    dbg.DebugWrite(Trace("frmCommandList.SetCmbKey")
                       .Var("lblKey.Caption", kKeys[static_cast<size_t>(i)].szLabel)
                       .Var("cmbKey.Text", c.text));
  }
}

int16_t CommandListDialog::GetCmbKey(int16_t i) const {
  const KeyCombo& c = cmbKey[static_cast<size_t>(i)];
  if (c.nListIndex >= 0) return kSpecialCodes[static_cast<size_t>(c.nListIndex)];
  if (c.text.empty()) return 0;
  return static_cast<int16_t>(std::tolower(static_cast<unsigned char>(c.text[0])));
}

void CommandListDialog::SaveKeys(ControlProfile& cp) {
  for (int16_t i = 0; i <= 10; ++i) cp.*kKeys[static_cast<size_t>(i)].field = GetCmbKey(i);
  if (dbg.On()) dbg.DebugWrite(Trace("frmCommandList.SaveKeys").Var("cpProfile.szName", cp.szName));
}

void CommandListDialog::cmbKey_Change(int16_t i, const std::string& typed, int16_t nListIndex) {
  if (bShowingKeys_) return;
  KeyCombo& c = cmbKey[static_cast<size_t>(i)];
  std::string text = nListIndex >= 0 ? kSpecialNames[static_cast<size_t>(nListIndex)] : typed;
  if (text == c.tag || text.empty()) return;
  if (text == " ") text = "Space";
  if (SpecialIndex(text) < 0) text = text.substr(0, 1);  // a key's first letter, or a special key's name
  if (text.size() == 1) text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  if (text == c.tag) return;
  // A key another command holds goes to that command in exchange: never two commands on one key.
  for (KeyCombo& other : cmbKey) {
    if (&other == &c || other.text != text) continue;
    other.text = c.tag;
    other.tag = c.tag;
    other.nListIndex = SpecialIndex(c.tag);
  }
  c.text = text;
  c.tag = text;
  c.nListIndex = SpecialIndex(text);
  KeysChanged();
}

void CommandListDialog::KeysChanged() {
  bChanged = true;
  bSaveEnabled = true;
  bDelEnabled = false;
  OptionProfile& op = opts.Current();
  op.nProfile = 0;
  op.szProfile = kTemporary;
  nProfileIndex = -1;
}

void CommandListDialog::cmbKey_LostFocus(int16_t i) {
  KeyCombo& c = cmbKey[static_cast<size_t>(i)];
  if (c.text.empty()) c.text = c.tag;
}

// nIndex is an item of the list, which the window only offers to pick.
void CommandListDialog::cmbProfile_Click(int16_t nIndex) {
  OptionProfile& op = opts.Current();
  if (op.nProfile == 0) {
    shell.ShowMsg("Do you want to save your current temporary control profile before selecting a new one?",
                  MsgButtons::YesNo, "Select New Profile", "powerup2.mp3");
    if (shell.gnMsgReturn == MsgAnswer::Yes) cmdSaveProfile_Click();
  }
  OptionProfile& now = opts.Current();  // saving may have added a profile, never taken one away
  now.nProfile = static_cast<int16_t>(nIndex + 1);
  now.szProfile = now.cpProfile[static_cast<size_t>(now.nProfile)].szName;
  nProfileIndex = nIndex;
  bDelEnabled = now.nProfile >= 5;
  ShowKeys();
}

void CommandListDialog::cmdSaveProfile_Click() {
  OptionProfile& op = opts.Current();
  size_t nTarget = 0;
  for (;;) {
    std::vector<std::string> saved;
    for (size_t k = 5; k < op.cpProfile.size(); ++k) saved.push_back(op.cpProfile[k].szName);
    select.Show("Save Control Profile As", saved);
    if (!select.gbRet) return;
    const std::string name = Lower(select.gszSelect);
    bool bReserved = false;
    for (const ControlProfile& builtIn : kBuiltInProfiles) bReserved |= Lower(builtIn.szName) == name;
    if (bReserved) {
      shell.ShowMsg(std::string("You cannot use a profile name reserved for the default configurations.") + "\n" +
                        "Please select a different profile name.",
                    MsgButtons::OkOnly, "Invalid Profile Name", "powerup2.mp3");
      continue;
    }
    if (select.gnSelIndex >= 0) {
      shell.ShowMsg("Are you sure you want to overwrite your existing " + select.gszSelect + " profile?" + "\n" +
                        "(Click 'No' to choose a different profile name to save as)",
                    MsgButtons::YesNo, "Confirm Profile Replace", "powerup2.mp3");
      if (shell.gnMsgReturn != MsgAnswer::Yes) continue;
      nTarget = static_cast<size_t>(select.gnSelIndex) + 5;
    } else {
      nTarget = op.cpProfile.size();
      op.cpProfile.push_back(ControlProfile{});
      cmbProfileItems.push_back(select.gszSelect);
    }
    break;
  }
  ControlProfile& cp = op.cpProfile[nTarget];
  SaveKeys(cp);
  cp.szName = select.gszSelect;
  op.nProfile = static_cast<int16_t>(nTarget);
  op.szProfile = cp.szName;
  cmbProfileItems[nTarget - 1] = cp.szName;
  nProfileIndex = static_cast<int16_t>(nTarget - 1);
  bDelEnabled = true;
  if (dbg.On()) {
    dbg.DebugWrite(Trace("frmCommandList.cmdSaveProfile_Click")
                       .Var("gszSelect", select.gszSelect)
                       .Var("gnSelIndex", select.gnSelIndex)
                       .Var("gopOpts(gnOpt).nProfile", op.nProfile));
  }
}

void CommandListDialog::cmdDelProfile_Click() {
  OptionProfile& op = opts.Current();
  if (!bDelEnabled) return;  // the button is off unless a saved profile is the current one
  shell.ShowMsg("Are you sure you want to delete the '" + op.szProfile + "' control profile?", MsgButtons::YesNo,
                "Delete Control Profile", "powerup2.mp3");
  if (shell.gnMsgReturn != MsgAnswer::Yes) return;
  op.cpProfile.erase(op.cpProfile.begin() + op.nProfile);
  cmbProfileItems.erase(cmbProfileItems.begin() + (op.nProfile - 1));
  op.nProfile = 1;
  op.szProfile = op.cpProfile[1].szName;
  nProfileIndex = 0;
  bDelEnabled = false;
  ShowKeys();
}

void CommandListDialog::cmdOK_Click() {
  OptionProfile& op = opts.Current();
  if (op.nProfile == 0) {
    shell.ShowMsg(std::string("Your current control settings have not been saved as a permant profile and will not "
                              "be available the next time you launch Skitterweb.") +
                      "\n" +
                      "Do you wish to save them now?  (Click 'yes' to create a new control profile or 'no' to "
                      "continue playing with your temporary settings.)",
                  MsgButtons::YesNo, "Save current control settings?", "powerup2.mp3");
    if (shell.gnMsgReturn == MsgAnswer::Yes) {
      cmdSaveProfile_Click();
    } else {
      SaveKeys(op.cpProfile[0]);
    }
  }
  bShown = false;
  shell.PlaySound("comp-option change.mp3");
  if (dbg.On()) {
    dbg.DebugWrite(Trace("frmCommandList.cmdOK_Click")
                       .Var("gopOpts(gnOpt).nProfile", opts.Current().nProfile)
                       .Var("gopOpts(gnOpt).szProfile", opts.Current().szProfile));
  }
}

void CommandListDialog::cmdCancel_Click() {
  OptionProfile& op = opts.Current();
  if (bChanged) {
    op.nProfile = nProfileAtOpen_;
    op.szProfile = nProfileAtOpen_ == 0 ? std::string(kTemporary) : szProfileAtOpen_;
  }
  bShown = false;
  if (dbg.On()) {
    dbg.DebugWrite(Trace("frmCommandList.cmdCancel_Click")
                       .Var("gopOpts(gnOpt).nProfile", op.nProfile)
                       .Var("gopOpts(gnOpt).szProfile", op.szProfile));
  }
}

void CommandListDialog::cmdHelp_Click() {
  shell.ShowMsg(
      std::string("Whisk (the mouse character which is you) is controlled entirely by the keyboard.  Included on the "
                  "controls window is the complete set of commands used to control Whisk and their current settings.  "
                  "Change the key mappings for those commands by selecting the appropriate command with the mouse and "
                  "then either pressing the desired key or selecting from the dropdown list to use one of the "
                  "available special keys.") +
          "\n\n" +
          "You can select one of the default control profiles from the list in the upper left of the window or you "
          "can make your own conrol profile.  Custom profiles can be saved using the 'Save Profile' button so that it "
          "can be easilly recalled by later games." +
          "\n\n" +
          "Refer to the Skitterweb help file for more information about the games commands and how to play "
          "Skitterweb.",
      MsgButtons::OkOnly, "Controls Help", "powerup2.mp3");
}

}  // namespace sw
