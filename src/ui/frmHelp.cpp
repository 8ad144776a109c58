#include "ui/frmHelp.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace swui {

namespace {

QPointer<frmHelp> g_help;

class HelpKey : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* e) override {
    if (e->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(e)->key() == Qt::Key_F1 && watched->isWidgetType()) {
      ShowHelp();
      return true;
    }
    return QObject::eventFilter(watched, e);
  }
};

}  // namespace

frmHelp::frmHelp(QWidget* over) : QWidget(over, Qt::Window) {
  setObjectName("frmHelp");
  setWindowTitle(tr("Skitterweb Help"));
  setAttribute(Qt::WA_DeleteOnClose);
  browser = new QTextBrowser(this);
  browser->setObjectName("browser");
  browser->setOpenExternalLinks(false);
  browser->setSearchPaths({QStringLiteral(":/help")});
  cmdBack = new QPushButton(tr("&Back"), this);
  cmdForward = new QPushButton(tr("&Forward"), this);
  cmdHome = new QPushButton(tr("&Home"), this);
  auto* close = new QPushButton(tr("&Close"), this);
  auto* bar = new QHBoxLayout;
  for (QPushButton* b : {cmdBack, cmdForward, cmdHome}) bar->addWidget(b);
  bar->addStretch(1);
  bar->addWidget(close);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(bar);
  layout->addWidget(browser, 1);
  connect(cmdBack, &QPushButton::clicked, browser, &QTextBrowser::backward);
  connect(cmdForward, &QPushButton::clicked, browser, &QTextBrowser::forward);
  connect(cmdHome, &QPushButton::clicked, browser, &QTextBrowser::home);
  connect(browser, &QTextBrowser::backwardAvailable, cmdBack, &QPushButton::setEnabled);
  connect(browser, &QTextBrowser::forwardAvailable, cmdForward, &QPushButton::setEnabled);
  connect(close, &QPushButton::clicked, this, &QWidget::close);
  cmdBack->setEnabled(false);
  cmdForward->setEnabled(false);
  browser->setSource(QUrl(kFirstPage));
  resize(640, 560);
}

void frmHelp::keyPressEvent(QKeyEvent* e) {
  if (e->key() == Qt::Key_Escape) {
    close();
    return;
  }
  QWidget::keyPressEvent(e);
}

frmHelp* ShowHelp() {
  QWidget* over = QApplication::activeModalWidget();
  if (g_help != nullptr && g_help->parentWidget() != over) {
    g_help->close();  // deleted later: the new owner gets a window of its own now
    g_help = nullptr;
  }
  if (g_help == nullptr) g_help = new frmHelp(over);
  g_help->browser->setSource(QUrl(frmHelp::kFirstPage));
  g_help->show();
  g_help->raise();
  g_help->activateWindow();
  return g_help;
}

void InstallHelpKey(QApplication& app) { app.installEventFilter(new HelpKey(&app)); }

}  // namespace swui
