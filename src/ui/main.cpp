#include <QApplication>
#include <QThread>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "Version.h"
#include "ui/BenchProbe.h"
#include "ui/FirstFrame.h"
#include "ui/GameStyle.h"
#include "ui/Heap.h"
#include "ui/SignalEnd.h"
#include "ui/frmHelp.h"
#include "ui/frmMain.h"

int main(int argc, char* argv[]) {
  // A logout, Ctrl+C or a closed terminal ends the game cleanly, even during its start.
  swui::CatchEndSignals();
  // Past a file-size limit a write fails with an error the game reports, instead of killing it.
  std::signal(SIGXFSZ, SIG_IGN);
  swui::TuneHeap();
  QApplication app(argc, argv);
  QApplication::setApplicationName("Skitterweb");
  QApplication::setApplicationVersion(QStringLiteral(SKITTERWEB_VERSION));
  // Lets a Wayland desktop match the window with the installed menu entry.
  QGuiApplication::setDesktopFileName(QStringLiteral("io.github.skitterweb.Skitterweb"));
  QApplication::setStyle(new swui::GameStyle);
  swui::InstallHelpKey(app);
  swui::frmMain frmMain;
  bool inMainLoop = false;
  swui::EndOnSignals(&frmMain, [&frmMain, &inMainLoop] {
    frmMain.sw.menu.EndSession();  // the options saved, the debug log closed, the main loop asked to end
    // A box, a dialog or a pause runs a loop of its own, and so does the start before the main
    // loop runs: the main loop's end, asked from there, would come too late or not at all. The
    // program ends here instead, its files saved and closed.
    if (!inMainLoop || QThread::currentThread()->loopLevel() > 1) {
      std::fflush(nullptr);
      std::_Exit(0);
    }
  });
  swui::FirstFrame::Watch(frmMain);
  frmMain.Start();
  swui::StartBenchMoves(frmMain);
  QTimer::singleShot(0, &frmMain, [&inMainLoop] { inMainLoop = true; });
  const int status = app.exec();
  return status;
}
