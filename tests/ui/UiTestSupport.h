#pragma once
// Shared pieces of the window tests: a fresh working directory (the game
// reads and writes its files in the current directory), a scripted message
// box that answers instead of waiting for a player, and small file helpers.
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <deque>
#include <initializer_list>
#include <vector>

#include "ui/frmMsgBox.h"

namespace uitest {

struct FreshDir {
  QTemporaryDir dir;
  FreshDir() { QDir::setCurrent(dir.path()); }
};

inline QString ReadFile(const QString& name) {
  QFile f(name);
  return f.open(QIODevice::ReadOnly) ? QString::fromLatin1(f.readAll()) : QString();
}

inline bool WriteFile(const QString& name, const QByteArray& bytes) {
  QFile f(name);
  return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

// Whether a shared library whose file name starts with `name` is mapped into this process.
inline bool Mapped(const char* name) {
  QFile maps("/proc/self/maps");
  return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(QByteArray("/") + name);
}

struct Shown {
  QString title;
  QString text;
  int16_t nButtons;
};

// Records every message box and answers from a script, or with the default
// button's code when the script is empty.
class ScriptedBoxes {
 public:
  ScriptedBoxes() {
    swui::frmMsgBox::testAnswer = [this](swui::frmMsgBox& box) -> int16_t {
      int16_t nButtons = -1;
      if (box.cmdYes->isVisibleTo(&box)) nButtons = 4;
      else if (box.cmdCancel->isVisibleTo(&box)) nButtons = 1;
      else if (box.cmdOK->isVisibleTo(&box)) nButtons = 0;
      shown.push_back({box.windowTitle(), box.lblMesg->text(), nButtons});
      if (answers.empty()) return nButtons == 4 ? 6 : 1;
      const int16_t a = answers.front();
      answers.pop_front();
      return a;
    };
  }
  ~ScriptedBoxes() { swui::frmMsgBox::testAnswer = nullptr; }
  ScriptedBoxes(const ScriptedBoxes&) = delete;
  ScriptedBoxes& operator=(const ScriptedBoxes&) = delete;

  // Forgets the boxes shown so far and queues the next answers.
  void Expect(std::initializer_list<int16_t> next) {
    shown.clear();
    answers = next;
  }

  std::vector<Shown> shown;
  std::deque<int16_t> answers;
};

}  // namespace uitest
