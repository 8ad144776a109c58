// Playing with the mouse: the step toward the cell under the pointer, a click as the key of that
// step, the board's menu, and the step shown while the pointer stands still.
#include <gtest/gtest.h>

#include <functional>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {
namespace {

// What the debug log gets, between its header and its exit block, while `play` runs on a
// board with Whisk at (5, 5) and one far virus.
std::string LogOf(const std::function<void(Board&)>& play, int16_t nDiff = 2) {
  Board b(nDiff, At(5, 5), {At(20, 12)});
  b.sw.opts.Current().bDebug = true;
  b.sw.session.DebugOpen(true, true);
  const size_t header = Slurp(DebugLog::kFileName).size();
  play(b);
  b.sw.dbg.DebugExit();
  const std::string log = Slurp(DebugLog::kFileName);
  return log.substr(header, log.rfind(std::string(64, '*')) - header);
}

}  // namespace

TEST(PointerStep, EachCellGivesTheDirectionOfItsSlice) {
  // Offsets from Whisk and the keypad digit of the step. No cell lies on the edge of a slice:
  // (17, 7) and (12, 5) sit on either side of the edge between right and down-right.
  const int cases[][3] = {{0, 0, 5},   {-1, -1, 7},  {0, -1, 8},   {1, -1, 9},   {-1, 0, 4},   {1, 0, 6},
                          {-1, 1, 1},  {0, 1, 2},    {1, 1, 3},    {3, 1, 6},    {2, 1, 3},    {1, 2, 3},
                          {1, 3, 2},   {17, 7, 6},   {12, 5, 3},   {7, 17, 2},   {5, 12, 3},   {-17, 7, 4},
                          {-12, 5, 1}, {-7, 17, 2},  {-5, 12, 1},  {17, -7, 6},  {12, -5, 9},  {7, -17, 8},
                          {5, -12, 9}, {-17, -7, 4}, {-12, -5, 7}, {-7, -17, 8}, {-5, -12, 7}, {23, 0, 6},
                          {0, -13, 8}, {-13, 13, 1}, {9, 9, 3}};
  for (const auto& c : cases)
    EXPECT_EQ(DirCode(DirectionToward(At(11, 6), At(11 + c[0], 6 + c[1]))), c[2]) << c[0] << "," << c[1];
}

TEST(Click, IsTheKeyOfItsStepWithItsLinesAndNewsAndNothingWhereTheKeyDoesNothing) {
  TempDir dir;
  for (const auto& [key, cell] : {std::pair{'9', At(9, 1)}, {'5', At(5, 5)}, {'4', At(0, 6)}}) {
    std::vector<std::string> said;
    const std::string byKey = LogOf([&](Board& b) {
      b.sw.input.Form_KeyPress(key);
      said = b.w.announced;
    });
    EXPECT_EQ(LogOf([&](Board& b) {
                b.sw.input.grdMap_MouseUp(1, cell);
                EXPECT_EQ(b.w.announced, said);
              }),
              "{{ frmMain.grdMap_MouseUp }} (input) Button=1 ctCell=" + cell.Text() + "\r\n" + byKey);
  }
  // No game on, a pause, a wait in force: a click, a secondary click and the menu do nothing.
  for (auto hold : {&GameState::gbGameOn, &GameState::gbSleepOn, &GameState::gbWaitOn})
    EXPECT_EQ(LogOf([&](Board& b) {
                b.g.*hold = hold != &GameState::gbGameOn;
                b.sw.input.grdMap_MouseUp(1, At(9, 5));
                b.sw.input.grdMap_MouseDown(2);
                b.sw.input.menBoard_Click(Command::Link);
                EXPECT_EQ(b.w.popup.size() + b.g.gnMoveCount, 0u);
              }),
              "");
  // A step that no key gives shows no pointer, and a click on it plays no turn: the key of Right
  // is gone, and Pause's is Up's. Other buttons take no step.
  EXPECT_EQ(LogOf([](Board& b) {
              ControlProfile& cp = b.sw.opts.Current().cpProfile[1];
              cp.CPMoveRight = 0;
              cp.CPPause = '8';
              for (CoordPair cell : {At(9, 5), At(5, 5), At(9, 1)}) {
                b.sw.input.grdMap_MouseMove(cell);
                EXPECT_EQ(b.w.stepDir, cell == At(9, 1) ? 9 : 0);
              }
              b.sw.input.grdMap_MouseUp(2, At(9, 1));
              b.sw.input.grdMap_MouseUp(1, At(9, 5));
              EXPECT_EQ(b.g.gctPlayerPos, At(5, 5));
            }),
            "{{ frmMain.grdMap_MouseUp }} (input) Button=1 ctCell=9,5\r\n     --> No key gives the command\r\n");
}

TEST(PointerStep, FollowsTheGameWhileThePointerStandsStill) {
  Board b(2, At(5, 5), {At(20, 12)});
  auto step = [&b] { return std::make_pair(int{b.w.stepDir}, b.w.outline); };
  b.sw.input.grdMap_MouseMove(At(5, 5));  // on Whisk: Pause, Whisk's own cell outlined
  EXPECT_EQ(step(), std::make_pair(5, At(5, 5)));
  {
    const Shell::Pause pause(b.sw.shell);  // nothing during a pause
    EXPECT_EQ(step(), std::make_pair(0, CoordPair{}));
  }
  b.sw.menu.menNewGame_Click();  // Whisk laid out elsewhere: the step is worked out from there
  const Direction dir = DirectionToward(b.g.gctPlayerPos, At(5, 5));
  CoordPair to = b.g.gctPlayerPos;
  b.eng.MoveNumDir(to, dir);
  EXPECT_EQ(step(), std::make_pair(int{DirCode(dir)}, to));
  EXPECT_NE(dir, Direction::Pause);
  b.sw.input.grdMap_MouseMove(At(-1, -1));
  EXPECT_EQ(step(), std::make_pair(0, CoordPair{}));
}

TEST(BoardMenu, OffersPauseWaitAndLinkWithTheirKeysAndRunsTheOneChosen) {
  TempDir dir;
  const std::string log = LogOf(
      [](Board& b) {
        int16_t pick = 0;  // Pause first, then Link
        b.w.onPopup = [&pick] { return pick; };
        b.sw.input.grdMap_MouseDown(2);
        pick = 2;
        EXPECT_EQ(b.w.popup, (std::vector<PopupItem>{{"&Pause\t5", true}, {"&Wait\t0", true}, {"&Link\t+", true}}));
        // Keyboard Left, with Pause unbound and Link on "&".
        OptionProfile& op = b.sw.opts.Current();
        op.nProfile = 2;
        op.cpProfile[2].CPPause = 0;
        op.cpProfile[2].CPLink = '&';
        b.sw.input.grdMap_MouseDown(2);
        EXPECT_EQ(b.w.popup, (std::vector<PopupItem>{{"&Pause", false}, {"&Wait\tTab", true}, {"&Link\t&&", true}}));
      },
      1);
  EXPECT_EQ(log.find("{{ frmMain.menBoard_Click }} (input) Command=CPPause\r\n{{ frmMain.Form_KeyPress }} (input) "
                     "KeyAscii=53 [5]\r\n"),
            0u);
  EXPECT_NE(log.find("Command=CPLink\r\n{{ frmMain.Form_KeyPress }} (input) KeyAscii=38 [&]\r\n"), std::string::npos);
}

}  // namespace sw::test
