#pragma once
// frmMain: the main window. It owns the game model, shows the map grid and
// the information bar, carries the menus, routes typed characters to the
// command handler and turns a close request into the Quit command.
#include <QCursor>
#include <QIcon>
#include <QMainWindow>
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "Skitterweb.h"
#include "runtime/MainWindow.h"
#include "ui/MapGrid.h"
#include "ui/Sound.h"
#include "ui/Twips.h"

class QAction;
class QKeyEvent;
class QFrame;
class QLabel;
class QMenu;

namespace swui {

class Announcer;
class BoardInput;
class ProgBar;

class frmMain : public QMainWindow, public sw::IMainWindow {
  Q_OBJECT

 public:
  explicit frmMain(QWidget* parent = nullptr);
  ~frmMain() override;

  // ---- the window's events; the menus' clicks go to sw.menu
  void Form_Load();
  // The program's start: the options and the first game are set up before the
  // window is shown, so that its first frame is the whole board, painted once.
  // A box at start stands alone before the window; the start sound's pause follows the first frame.
  // From the first frame until the start's last step has run, the start is one pause:
  // no key runs a turn inside it.
  void Start();
  // The program's icon, drawn from its picture.
  static QIcon AppIcon();
  void Form_KeyDown();
  void Form_MouseMove();
  // The character a key press types: its text, or for the number pad with
  // Num Lock off the digit its key carries; 0 when it types none.
  static int16_t KeyAsciiOf(const QKeyEvent& e);
  // The review key a key press is: the arrow keys, Home and End of the main block,
  // which type no character (the number pad's keys are game keys).
  static std::optional<sw::ReviewKey> ReviewKeyOf(const QKeyEvent& e);

  // ---- IMainWindow
  void SetCellPicture(int16_t nCol, int16_t nRow, sw::Picture pic) override;
  void Refresh() override;
  void SetWindowSize(int32_t widthTw, int32_t heightTw, int32_t infoBarWidthTw) override;
  void SetGridLayout(int16_t cols, int16_t rows, int32_t widthTw, int32_t heightTw, int16_t cellTw,
                     bool bLines) override;
  void SetCaption(sw::Label lbl, const std::string& text) override;
  void SetLabelColors(sw::Label lbl, uint32_t backColor, uint32_t foreColor) override;
  void SetLabelForeColor(sw::Label lbl, uint32_t foreColor) override;
  void ShowLagBar(const sw::ProgBarState& bar) override;
  sw::MsgAnswer MsgBox(const std::string& text, sw::MsgButtons nButtons, const std::string& szTitle) override;
  void SetSoundFileName(const std::string& fileName) override;
  void SoundCommand(const std::string& command) override;
  void SetPointer(sw::Pointer p) override;
  void Sleep(int32_t ms) override;
  void DoEvents() override;
  void SetMenuChecked(sw::Menu item, bool checked) override;
  void SetMenuEnabled(sw::Menu item, bool enabled) override;
  void EndProgram() override;
  void Announce(const std::string& text) override;
  void SendKeys(const std::string& keys) override;
  void ShowDialog(sw::Dialog which) override;
  void ShowStep(sw::Direction nDir, const sw::CoordPair& ctOutline) override;
  int16_t PopupMenu(const std::vector<sw::PopupItem>& items) override;

  // &HBBGGRR values and system colours as Qt colours.
  static QColor ToQColor(uint32_t bgr);

  QLabel* Caption(sw::Label lbl) const;
  QAction* MenuAction(sw::Menu item) const;
  sw::Pointer CurrentPointer() const { return pointer_; }
  const Twips& twips() const { return tw_; }
  // frmMain.Width and frmMain.Height as SetSize last gave them (twips).
  int32_t WidthTwips() const { return widthTw_; }
  int32_t HeightTwips() const { return heightTw_; }
  // True once the Quit command has ended the program.
  bool Quitting() const { return quitting_; }
  Sound& SoundDevice() { return mmcSound; }

  // The game model; constructed first, destroyed last among the members.
  sw::Skitterweb sw{*this};

  // ---- controls
  MapGrid* grdMap = nullptr;
  QFrame* pctInfoBar = nullptr;
  QLabel *lblScoreT = nullptr, *lblScore = nullptr;
  QLabel *lblHighScoreT = nullptr, *lblHighScore = nullptr;
  QLabel *lblReconnectsT = nullptr, *lblReconnects = nullptr;
  QLabel *lbSitesHitT = nullptr, *lblSitesHit = nullptr;
  QLabel *lblVirusT = nullptr, *lblVirus = nullptr;
  QLabel *lblNetLagT = nullptr, *lblNetLag = nullptr;
  ProgBar* pbrNetLag = nullptr;
  Announcer* announcer = nullptr;  // says the news of each turn to a screen reader
  QLabel *lblDiffT = nullptr, *lblDiff = nullptr;
  QLabel *lblPUTimerT = nullptr, *lblPUTimer = nullptr;
  QLabel *lblAntiVirusT = nullptr, *lblBackupT = nullptr, *lblRebootT = nullptr, *lblSoftUpgradeT = nullptr,
         *lblDedLine = nullptr;
  QFrame *shpAntiVirus = nullptr, *shpBackup = nullptr, *shpReboot = nullptr, *shpSoftUpgrade = nullptr,
         *shpDedLine = nullptr;

  // ---- menus
  QMenu *menGame = nullptr, *menOptions = nullptr, *menDiff = nullptr, *menPowerUps = nullptr, *menStartSite = nullptr,
        *menMapSize = nullptr, *menDebug = nullptr, *menHelp = nullptr;
  QAction *menNewGame = nullptr, *menChangePlayer = nullptr, *menHighScores = nullptr, *menQuit = nullptr;
  QAction *menSound = nullptr, *menGrid = nullptr, *menControls = nullptr, *menDownServers = nullptr,
          *menSafeMode = nullptr;
  std::array<QAction*, 5> menDiffLevel{};  // 1 to 4
  QAction *menReboot = nullptr, *menBackup = nullptr, *menAntiVirus = nullptr, *menSoftUpgrade = nullptr,
          *menDedLine = nullptr, *menPUDownload = nullptr;
  std::array<QAction*, 10> menStartSiteNum{};  // 0 to 9
  std::array<QAction*, 5> menSizeSetting{};    // 0 to 4
  QAction *menUseDL = nullptr, *menClearDL = nullptr, *menMarkDL = nullptr;
  QAction *menHelpFile = nullptr, *menHowPlay = nullptr, *menScoring = nullptr, *menCredits = nullptr,
          *menAbout = nullptr;

  // The hidden picture templates.
  const PictureSet& Pictures() const { return pictures_; }

 protected:
  bool event(QEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void closeEvent(QCloseEvent* e) override;
  bool eventFilter(QObject* watched, QEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  void BuildMenus();
  void BuildInfoBar();
  void PlaceGrid();
  QWidget* DialogParent();
  bool starting_ = false;
  bool firstFrameDue_ = false;
  // A notice came up during the start, before the window: from then on nothing waits for the window.
  bool noticeAtStart_ = false;
  // Whether what the start asks of the sound device and the pause waits for the first frame.
  bool WindowDue() const;
  // What the start-up asked of the sound device and the pause, done in order once the first frame is up.
  std::vector<std::function<void()>> afterFirstFrame_;
  // Runs those steps, inside a pause, and ends the start's own pause.
  void RunStartSteps();
  std::optional<sw::Shell::Pause> startPause_;
  void ReturnFocus();
  QLabel* MakeLabel(QWidget* parent, const char* name, const char* caption, const char* tooltip, bool tile = false);
  // Colours that follow the desktop's palette: muted captions and power-ups.
  void ApplyLook();
  void SetLabelText(QLabel* label, const QString& text);

  Twips tw_;
  PictureSet pictures_;
  Sound mmcSound;
  std::optional<QCursor> customPointer_;  // drawn on first use
  sw::Pointer pointer_ = sw::Pointer::Custom;
  QWidget* central_ = nullptr;
  int32_t widthTw_ = 0;
  int32_t heightTw_ = 0;
  int32_t gridWidthTw_ = 0;
  int32_t gridHeightTw_ = 0;
  bool quitting_ = false;
  std::map<sw::Label, QLabel*> labels_;
  // The mouse and touch over the board. Gone first, before the model and the controls, so that
  // no event the controls get as they go reaches the model.
  std::unique_ptr<BoardInput> grdMapInput_;
};

}  // namespace swui
