// Playing with the mouse: the step toward the cell under the pointer, a click as the key of that
// step, the board's menu, and the step shown while the pointer stands still.
#include <gtest/gtest.h>

#include <functional>

#include "game/Board.h"
#include "support/TempDir.h"

namespace sw::test {
namespace {

const std::string kClick = "{{ frmMain.grdMap_MouseUp }} (input) Button=1 ctCell=";

// What the debug log gets, between its header and its exit block, while `play` runs on a
// board with Whisk at (5, 5) and one far virus.
std::string LogOf(const std::function<void(Board&)>& play, int16_t nDiff = 2) {
  Board b(nDiff, At(5, 5), {At(20, 12)});
  b.sw.opts.Current().bDebug = -1;
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
  const struct {
    int dx, dy, dir;
  } cases[] = {{0, 0, 5},    {-1, -1, 7}, {0, -1, 8},  {1, -1, 9},   {-1, 0, 4},   {1, 0, 6},    {-1, 1, 1},
               {0, 1, 2},    {1, 1, 3},   {3, 1, 6},   {2, 1, 3},    {1, 2, 3},    {1, 3, 2},    {17, 7, 6},
               {12, 5, 3},   {7, 17, 2},  {5, 12, 3},  {-17, 7, 4},  {-12, 5, 1},  {-7, 17, 2},  {-5, 12, 1},
               {17, -7, 6},  {12, -5, 9}, {7, -17, 8}, {5, -12, 9},  {-17, -7, 4}, {-12, -5, 7}, {-7, -17, 8},
               {-5, -12, 7}, {23, 0, 6},  {0, -13, 8}, {-13, 13, 1}, {9, 9, 3}};
  for (const auto& c : cases)
    EXPECT_EQ(DirectionToward(At(11, 6), At(11 + c.dx, 6 + c.dy)), c.dir) << c.dx << "," << c.dy;
}

TEST(Click, RunsTheKeyOfItsStepWithTheKeysLinesAndNews) {
  TempDir dir;
  const struct {
    char key;
    CoordPair cell;
  } cases[] = {{'7', At(2, 2)}, {'8', At(5, 0)}, {'9', At(9, 1)},  {'4', At(0, 6)}, {'5', At(5, 5)},
               {'6', At(9, 4)}, {'1', At(1, 9)}, {'2', At(4, 13)}, {'3', At(7, 7)}};
  for (const auto& c : cases) {
    std::vector<std::string> said;
    CoordPair whisk;
    const std::string byKey = LogOf([&](Board& b) {
      b.sw.input.Form_KeyPress(c.key);
      said = b.w.announced;
      whisk = b.g.gctPlayerPos;
    });
    const std::string byClick = LogOf([&](Board& b) {
      b.sw.input.grdMap_MouseUp(1, c.cell);
      EXPECT_EQ(b.w.announced, said);
      EXPECT_EQ(b.g.gctPlayerPos, whisk);
    });
    EXPECT_NE(byKey.find(std::string("KeyAscii=") + std::to_string(c.key) + " [" + c.key + "]"), std::string::npos);
    EXPECT_EQ(byClick, kClick + c.cell.Text() + "\r\n" + byKey) << c.key;
  }
}

TEST(Click, NothingWhereAKeyDoesNothingAndNoTurnWithoutAKey) {
  TempDir dir;
  // No game on, a pause, a wait in force: a click, a secondary click and the menu do nothing, as keys would.
  const std::function<void(GameState&)> holds[] = {[](GameState& g) { g.gbGameOn = 0; },
                                                   [](GameState& g) { g.gbSleepOn = -1; },
                                                   [](GameState& g) { g.gbWaitOn = -1; }};
  for (const auto& hold : holds) {
    EXPECT_EQ(LogOf([&](Board& b) {
                hold(b.g);
                b.sw.input.grdMap_MouseUp(1, At(9, 5));
                b.sw.input.grdMap_MouseDown(2);
                b.sw.input.menBoard_Click(Command::Link);
                EXPECT_TRUE(b.w.popup.empty());
                EXPECT_EQ(b.g.gctPlayerPos, At(5, 5));
              }),
              "");
  }
  // Other buttons take no step. A step that no key gives shows no pointer, and a click on it
  // is traced but plays no turn: here the key of Right is gone, and Pause's is Up's.
  EXPECT_EQ(LogOf([](Board& b) {
              b.sw.input.grdMap_MouseUp(2, At(9, 5));
              ControlProfile& cp = b.sw.opts.Current().cpProfile[1];
              cp.CPMoveRight = 0;
              cp.CPPause = '8';
              EXPECT_EQ(KeyOfCommand(cp, Command::Pause), 0);
              EXPECT_EQ(KeyOfCommand(cp, Command::MoveUp), '8');
              for (CoordPair cell : {At(9, 5), At(5, 5), At(9, 1)}) {
                b.sw.input.grdMap_MouseMove(cell);
                EXPECT_EQ(b.w.stepDir, cell == At(9, 1) ? 9 : 0);
              }
              b.sw.input.grdMap_MouseUp(1, At(9, 5));
              EXPECT_EQ(b.g.gctPlayerPos, At(5, 5));
            }),
            kClick + "9,5\r\n     --> No key gives the command\r\n");
}

TEST(PointerStep, FollowsTheGameWhileThePointerStandsStill) {
  Board b(2, At(5, 5), {At(20, 12)});
  PlayerInput& in = b.sw.input;
  FakeWindow& w = b.w;
  auto step = [&w] { return std::make_pair(int{w.stepDir}, w.outline); };
  in.grdMap_MouseMove(At(9, 5));
  EXPECT_EQ(step(), std::make_pair(6, At(6, 5)));
  in.Form_KeyPress('3');  // Whisk to (6, 6): the pointer, standing still, is still right of Whisk
  EXPECT_EQ(step(), std::make_pair(6, At(7, 6)));
  in.Form_KeyPress('3');  // (7, 7): now up-right
  EXPECT_EQ(step(), std::make_pair(9, At(8, 6)));
  {
    const Shell::Pause pause(b.sw.shell);  // nothing during a pause
    EXPECT_EQ(step(), std::make_pair(0, CoordPair{}));
  }
  EXPECT_EQ(step(), std::make_pair(9, At(8, 6)));
  in.grdMap_MouseMove(At(7, 7));  // on Whisk: Pause, Whisk's own cell outlined
  EXPECT_EQ(step(), std::make_pair(5, At(7, 7)));
  // A new game from the menu lays Whisk out elsewhere: the step is worked out from there.
  b.sw.menu.menNewGame_Click();
  const int16_t dir = DirectionToward(b.g.gctPlayerPos, At(7, 7));
  CoordPair to = b.g.gctPlayerPos;
  b.eng.MoveNumDir(to, dir);
  EXPECT_NE(dir, 5);
  EXPECT_EQ(step(), std::make_pair(int{dir}, to));
  const int told = w.steps;
  in.grdMap_MouseMove(At(7, 7));  // unchanged: nothing told
  in.grdMap_MouseMove(At(-1, -1));
  EXPECT_EQ(std::make_pair(w.steps, step()), std::make_pair(told + 1, std::make_pair(0, CoordPair{})));
}

TEST(BoardMenu, OffersPauseWaitAndLinkWithTheirKeysAndRunsTheOneChosen) {
  TempDir dir;
  const std::string log = LogOf(
      [](Board& b) {
        b.w.onPopup = [] { return int16_t{2}; };
        b.sw.input.grdMap_MouseDown(1);  // the primary button opens nothing
        EXPECT_TRUE(b.w.popup.empty());
        b.sw.input.grdMap_MouseDown(2);
        EXPECT_EQ(b.w.popup, (std::vector<PopupItem>{{"&Pause\t5", true}, {"&Wait\t0", true}, {"&Link\t+", true}}));
        EXPECT_EQ(b.g.gbScoreNoLinkSite, 0);
        // Keyboard Left, with Pause unbound and Link on "&": Wait chosen runs until the site ends.
        OptionProfile& op = b.sw.opts.Current();
        op.nProfile = 2;
        op.cpProfile[2].CPPause = 0;
        op.cpProfile[2].CPLink = '&';
        b.w.onPopup = [] { return int16_t{1}; };
        b.sw.input.grdMap_MouseDown(2);
        EXPECT_EQ(b.w.popup, (std::vector<PopupItem>{{"&Pause", false}, {"&Wait\tTab", true}, {"&Link\t&&", true}}));
        EXPECT_EQ(b.g.gnReconnects, 1);  // the far virus came
      },
      1);
  EXPECT_EQ(log.find("{{ frmMain.menBoard_Click }} (input) Command=CPLink\r\n{{ frmMain.Form_KeyPress }} (input) "
                     "KeyAscii=43 [+]\r\n"),
            0u);
  EXPECT_NE(log.find("{{ frmMain.menBoard_Click }} (input) Command=CPWait\r\n{{ frmMain.Form_KeyPress }} (input) "
                     "KeyAscii=9 [\t]\r\n"),
            std::string::npos);
}

}  // namespace sw::test
