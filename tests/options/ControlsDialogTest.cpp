// The controls dialog and the selection dialog, through the fake window:
// typing and picking keys, the swap, profiles saved, refused, deleted and
// restored.
#include <gtest/gtest.h>

#include "support/App.h"

namespace sw::test {

namespace {

// The combo of each command, as the dialog numbers them like a number pad.
constexpr int16_t kLink = 0, kDown = 2, kUp = 8, kWait = 10;
using Ints = std::vector<int>;  // several values compared at once

// The rows of the profile list: the four built-in profiles, then the saved ones.
std::vector<std::string> Names(std::initializer_list<const char*> saved) {
  std::vector<std::string> rows = {"Number Pad (Default)", "Keyboard Left", "Keyboard Right", "Old School (larn)"};
  rows.insert(rows.end(), saved.begin(), saved.end());
  return rows;
}

struct Controls : App {
  CommandListDialog& d = sw.controls;
  SelectDialog& sel = sw.select;
  OptionProfile& op = sw.opts.gopOpts[0];
  std::function<void()> visit;     // what the player does inside the controls dialog
  std::vector<std::string> names;  // the answers to the selection dialog, one per opening; none left cancels

  Controls() {
    op.bSound = false;
    w.onDialog = [this](Dialog which) {
      if (which == Dialog::frmCommandList) {
        visit();
      } else if (names.empty()) {
        sel.cmdCancel_Click();
      } else {
        sel.cmbSelect_Change(names.front());
        names.erase(names.begin());
        sel.cmdOk_Click();
      }
    };
  }
  // Opens the dialog and runs `f` inside it.
  void Visit(std::function<void()> f) {
    visit = std::move(f);
    d.Show();
  }
};

}  // namespace

TEST(ControlsDialog, TypedAndPickedKeysAreSwappedNeverDuplicated) {
  Controls c;
  c.Visit([&] {
    EXPECT_EQ(Ints({int(c.d.cmbProfileItems.size()), c.d.nProfileIndex}), Ints({4, 0}));
    c.d.cmbKey_Change(kUp, "2");  // Down holds 2: it takes Up's old 8
    EXPECT_EQ(c.d.cmbKey[kUp].text + c.d.cmbKey[kDown].text + " " + c.op.szProfile, "28 (Temporary)");
    EXPECT_EQ(Ints({c.op.nProfile, c.d.nProfileIndex, c.d.bSaveEnabled, c.d.bDelEnabled}), Ints({0, -1, 1, 0}));
    c.d.cmbKey_Change(kLink, "ex");  // its first letter: shown in capitals, stored in lower case
    EXPECT_EQ(c.d.cmbKey[kLink].text + std::to_string(c.d.GetCmbKey(kLink)), "E101");
    c.d.cmbKey_Change(kWait, "Enter");  // typed as the list names it
    EXPECT_EQ(c.d.GetCmbKey(kWait), 13);
    c.d.cmbKey_Change(kLink, "", 0);  // the list's first item, Enter, taken from Wait
    EXPECT_EQ(c.d.cmbKey[kLink].text + c.d.cmbKey[kWait].text, "EnterE");
    c.d.cmbKey_Change(kWait, "", 4);  // "Tab", its last
    c.d.cmbKey_Change(kLink, " ");    // a blank is the Space item (stored as 32, below)
    c.d.cmbKey_Change(kUp, "");       // an empty text is left alone, and leaving puts the key back
    c.d.cmbKey[kUp].text.clear();
    c.d.cmbKey_LostFocus(kUp);
    EXPECT_EQ(c.d.cmbKey[kUp].text, "2");
    c.w.answers = {MsgAnswer::No};  // Set: not saved, the temporary profile plays
    c.d.cmdOK_Click();
  });
  const ControlProfile& temp = c.op.cpProfile[0];
  EXPECT_EQ(Ints({temp.CPMoveUp, temp.CPMoveDown, temp.CPWait, temp.CPLink}), Ints({'2', '8', 9, 32}));
  EXPECT_EQ(Shown(c.w).at(0).rfind("Save current control settings?: ", 0), 0u);
  // A stored 9 shows the Tab item; the temporary profile is what the dialog shows next time, Save off until
  // a key changes.
  c.Visit([&] {
    EXPECT_EQ(c.d.cmbKey[kWait].text + std::to_string(c.d.cmbKey[kWait].nListIndex) + std::to_string(c.d.bSaveEnabled),
              "Tab40");
  });
}

TEST(ControlsDialog, SavingRefusesReservedNamesAsksBeforeOverwritingAndDeleteFallsBack) {
  Controls c;
  c.Visit([&] {
    c.d.cmbKey_Change(kUp, "w");
    c.names = {"keyboard left", "Arrows"};
    c.d.cmdSaveProfile_Click();
    EXPECT_EQ(Shown(c.w).at(0),
              "Invalid Profile Name: You cannot use a profile name reserved for the default "
              "configurations.\nPlease select a different profile name.");
    // The new profile's name is the list's last row, and the one selected.
    EXPECT_EQ(c.d.cmbProfileItems, Names({"Arrows"}));
    EXPECT_EQ(Ints({c.op.nProfile, c.d.nProfileIndex, c.d.bDelEnabled}), Ints({5, 4, 1}));
    c.d.cmdOK_Click();
  });
  ASSERT_EQ(c.op.cpProfile.size(), 6u);
  EXPECT_EQ(c.op.cpProfile[5].szName + char(c.op.cpProfile[5].CPMoveUp), "Arrowsw");

  // Overwriting asks; a capitalised name picks the list's own spelling. Then Delete falls back to profile 1.
  c.Visit([&] {
    // Delete is there for saved profiles only: at the open (Arrows), not for a built-in one picked, again for Arrows.
    const bool atOpen = c.d.bDelEnabled;
    c.d.cmbProfile_Click(3);
    const bool builtIn = c.d.bDelEnabled;
    c.d.cmbProfile_Click(4);
    EXPECT_EQ(Ints({atOpen, builtIn, c.d.bDelEnabled}), Ints({1, 0, 1}));
    c.d.cmbKey_Change(kUp, "q");
    c.names = {"ARROWS"};
    c.w.answers = {MsgAnswer::Yes};
    c.d.cmdSaveProfile_Click();
    EXPECT_EQ(c.sel.gszSelect + " " + std::to_string(c.sel.gnSelIndex), "Arrows 0");
    EXPECT_EQ(Ints({int(c.op.cpProfile.size()), c.op.cpProfile[5].CPMoveUp}), Ints({6, 'q'}));
    c.w.answers = {MsgAnswer::Yes};
    c.d.cmdDelProfile_Click();
    EXPECT_EQ(Ints({int(c.op.cpProfile.size()), c.op.nProfile, c.d.nProfileIndex}), Ints({5, 1, 0}));
    EXPECT_EQ(c.d.cmbProfileItems, Names({}));
    EXPECT_EQ(c.op.szProfile + " " + c.d.cmbKey[kUp].text, "Number Pad (Default) 8");
    c.d.cmdOK_Click();
  });
  for (const ShownMsg& m : c.w.messages)
    EXPECT_EQ(m.nButtons, m.szTitle == "Invalid Profile Name" ? MsgButtons::OkOnly : MsgButtons::YesNo);
}

// Picking a profile, or OK, while the keys are temporary asks Yes/No first, and only Yes opens the name
// dialog; Cancel puts back the profile the visit began with and stores no key. (No to OK: the first test.)
TEST(ControlsDialog, SaveQuestionsAreYesNoAndCancelRestoresTheProfileOfThisVisit) {
  const struct {
    MsgAnswer answer;
    int shown, selects, profiles, nProfile;
    std::string name;
    int up;
  } cases[] = {
      // Yes: saved as Mine first, then profile 2 picked; OK saves as Two
      {MsgAnswer::Yes, 2, 2, 7, 6, "Two", 'q'},
      {MsgAnswer::Cancel, 1, 0, 5, 3, "Keyboard Right", 0},  // No to the first question, then Cancel
  };
  for (const auto& t : cases) {
    SCOPED_TRACE(t.name);
    Controls c;
    c.op.nProfile = 3;
    c.op.szProfile = "Keyboard Right";
    c.Visit([&] {
      EXPECT_EQ(c.d.cmbKey[kUp].text + c.d.cmbKey[kLink].text, "OEnter");  // every box, Link's too
      c.d.cmbKey_Change(kUp, "w");
      c.names = {"Mine", "Two"};
      c.w.answers = {t.answer == MsgAnswer::Yes ? MsgAnswer::Yes : MsgAnswer::No};
      c.d.cmbProfile_Click(1);
      EXPECT_EQ(c.op.nProfile, 2);
      c.d.cmbKey_Change(kUp, "q");
      c.w.answers = {t.answer};
      if (t.answer == MsgAnswer::Cancel)
        c.d.cmdCancel_Click();
      else
        c.d.cmdOK_Click();
    });
    EXPECT_EQ(Shown(c.w).at(0).rfind("Select New Profile: ", 0), 0u);
    for (const ShownMsg& m : c.w.messages) EXPECT_EQ(m.nButtons, MsgButtons::YesNo) << m.szTitle;
    EXPECT_EQ(int(c.w.messages.size()), t.shown);
    EXPECT_EQ(std::count(c.w.dialogs.begin(), c.w.dialogs.end(), Dialog::frmSelect), t.selects);
    ASSERT_EQ(int(c.op.cpProfile.size()), t.profiles);
    EXPECT_EQ(std::to_string(c.op.nProfile) + " " + c.op.szProfile, std::to_string(t.nProfile) + " " + t.name);
    EXPECT_EQ(c.op.cpProfile[t.answer == MsgAnswer::Yes ? 6 : 0].CPMoveUp, t.up);
  }
}

// Cancel puts the profile back only when this visit changed keys: a profile picked is kept, even after an
// earlier visit that did change them.
TEST(ControlsDialog, CancelKeepsAProfilePickedWithoutChangingKeys) {
  Controls c;
  c.w.answers = {MsgAnswer::No, MsgAnswer::No};  // keep the keys temporary; pick without saving them
  c.Visit([&] {
    c.d.cmbKey_Change(kUp, "w");
    EXPECT_TRUE(c.d.bShown);  // open until Set or Cancel
    c.d.cmdOK_Click();
    EXPECT_FALSE(c.d.bShown);
  });
  c.Visit([&] {
    c.d.cmbProfile_Click(2);
    c.d.cmdCancel_Click();
    EXPECT_FALSE(c.d.bShown);  // Cancel closes the dialog, as Set does
  });
  EXPECT_EQ(std::to_string(c.op.nProfile) + " " + c.op.szProfile, "3 Keyboard Right");
  // The temporary profile put back is named so, whatever name a hand-edited file gave it.
  c.op.nProfile = 0;
  c.op.szProfile = "typed by hand";
  c.Visit([&] { c.d.cmbKey_Change(kUp, "q"), c.d.cmdCancel_Click(); });
  EXPECT_EQ(c.op.szProfile, "(Temporary)");
}

// Nothing typed is refused; Cancel chooses nothing. (A name picked in the list's own spelling: the saving above.)
TEST(SelectDialog, NothingChosenIsRefusedAndCancelChoosesNothing) {
  App a;
  SelectDialog& s = a.sw.select;
  a.sw.opts.Current().bSound = false;
  a.w.onDialog = [&](Dialog) {
    s.cmdOk_Click();  // nothing typed: told so, the dialog stays
    EXPECT_TRUE(s.bShown);
    s.cmbSelect_Change("other");  // a name from the list, then Cancel
    s.cmdCancel_Click();
    EXPECT_FALSE(s.bShown);
  };
  s.Show("Pick", {"Other"});
  EXPECT_EQ(Shown(a.w), std::vector<std::string>{
                            "No Selection Made: You have not made any selection.\nPlease type your selection or "
                            "choose a selection from the list.  Click 'Cancel' to abort."});
  EXPECT_EQ(Ints({s.gbRet.Code(), s.gnSelIndex}), Ints({0, -1}));
}

}  // namespace sw::test
