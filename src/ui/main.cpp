#include <QApplication>
#include <QIcon>

#include "ui/SignalEnd.h"
#include "ui/frmMain.h"

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Skitterweb");
  QApplication::setApplicationVersion("1.14");
  swui::frmMain frmMain;
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/icon.svg")));
  frmMain.setWindowIcon(QIcon(QStringLiteral(":/pictures/icon.svg")));
  swui::EndOnSignals(&frmMain, [&frmMain] { frmMain.sw.menu.EndSession(); });
  frmMain.show();
  frmMain.Form_Load();
  return app.exec();
}
