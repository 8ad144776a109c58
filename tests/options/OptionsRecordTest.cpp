#include <gtest/gtest.h>

#include <string>

#include "game/Skitterweb.h"
#include "support/FakeWindow.h"

namespace sw {
namespace {

// The seventeen keys of a profile as characters, in profile order.
std::string Keys(const ControlProfile& cp) {
  std::string s;
  for (const CommandField& f : kCommandFields) s.push_back(static_cast<char>(cp.*f.field));
  return s;
}

TEST(OptionsRecord, BuiltInProfilesCarryTheirNamesAndKeys) {
  test::FakeWindow w;
  Skitterweb sw(w);
  const auto& cp = sw.opts.gopOpts.at(0).cpProfile;
  ASSERT_EQ(cp.size(), 5u);
  // Up, up-right, right, down-right, down, down-left, left, up-left, wait, pause,
  // anti-virus, reboot, backup, restore, upgrade, dedicated line, link.
  EXPECT_EQ(cp[1].szName, "Number Pad (Default)");
  EXPECT_EQ(Keys(cp[1]), "8963214705aebrsd+");
  EXPECT_EQ(cp[2].szName, "Keyboard Left");
  EXPECT_EQ(Keys(cp[2]), "erfcxzsw\td123456 ");
  EXPECT_EQ(cp[3].szName, "Keyboard Right");
  EXPECT_EQ(Keys(cp[3]), "op;/.,ki\tl12qw3e\r");
  EXPECT_EQ(cp[4].szName, "Old School (larn)");
  EXPECT_EQ(Keys(cp[4]), "kulnjbhy/.67890-p");
  EXPECT_EQ(cp[3].CPLink, 13);
  EXPECT_EQ(cp[3].CPMoveRight, ';');
  EXPECT_EQ(cp[2].CPLink, 32);
  EXPECT_EQ(cp[2].CPWait, 9);
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(cp[static_cast<size_t>(i)], kBuiltInProfiles[i - 1]);
}

TEST(OptionsRecord, FreshRecordDefaults) {
  test::FakeWindow w;
  Skitterweb sw(w);
  Options& o = sw.opts;
  ASSERT_EQ(o.gopOpts.size(), 1u);
  EXPECT_EQ(o.gnOpt, 0.0);
  EXPECT_EQ(o.gnOptMax, 0);
  const OptionProfile& op = o.gopOpts[0];
  EXPECT_EQ(op.szUserName, "Guest");
  EXPECT_EQ(op.szPassword, "");
  EXPECT_EQ(op.nProfile, 1);
  EXPECT_EQ(op.szProfile, "Number Pad (Default)");
  EXPECT_EQ(op.bDebug, 0);
  EXPECT_EQ(op.nDiff, 2);
  EXPECT_EQ(op.bGrid, -1);
  EXPECT_EQ(op.bSound, -1);
  EXPECT_EQ(op.nStartSite, 0);
  EXPECT_EQ(op.nMapSize, 3);
  EXPECT_EQ(op.bDownServers, 0);
  EXPECT_EQ(op.bSafe, 0);
  ASSERT_EQ(op.cpProfile.size(), 5u);  // upper bound 4
  EXPECT_EQ(op.cpProfile[0], ControlProfile{});
  EXPECT_EQ(Keys(op.cpProfile[0]), std::string(17, '\0'));
  EXPECT_EQ(&o.CurrentKeys(), &op.cpProfile[1]);

  // A new last record gets the built-in profiles; its password is left alone.
  o.gopOpts.resize(3);
  o.gnOptMax = 2;
  o.gopOpts[2].szPassword = "kept";
  o.InitOptionProfile(o.gopOpts[2]);
  EXPECT_EQ(o.gopOpts[2].szPassword, "kept");
  EXPECT_EQ(o.gopOpts[2].cpProfile.size(), 5u);
  EXPECT_TRUE(o.gopOpts[1].cpProfile.empty());
  EXPECT_EQ(o.gopOpts[2].szProfile, "Number Pad (Default)");
}

}  // namespace
}  // namespace sw
