// The sound device: where files are found, and that a missing or broken
// file plays nothing without harm.
#include <QTest>

#include "ui/Sound.h"
#include "ui/UiTestSupport.h"

using swui::Sound;

class TestSound : public QObject {
  Q_OBJECT

 private:
  uitest::FreshDir dir_;

  static void Play(Sound& s, const std::string& name) {
    for (const char* c : {"Stop", "Close"}) s.Command(c);
    s.SetFileName(std::string(".\\sounds\\") + name);
    for (const char* c : {"Open", "Play"}) s.Command(c);
  }

 private slots:
  void resolvesBesideTheProgramFirst() {
    QVERIFY(QDir().mkpath("sounds") && uitest::WriteFile("sounds/comp-dead.mp3", "x"));
    QCOMPARE(Sound::Resolve(".\\sounds\\comp-dead.mp3"), std::string("sounds/comp-dead.mp3"));
    // Not in the current directory: the game's own sounds are found elsewhere.
    const std::string other = Sound::Resolve(".\\sounds\\comp-goodbye.mp3");
    QVERIFY(other.ends_with("/sounds/comp-goodbye.mp3") && QFile::exists(QString::fromStdString(other)));
    QCOMPARE(Sound::Resolve(".\\sounds\\no such sound.mp3"), std::string());
  }

  void missingAndBrokenFilesAreSilent() {
    QVERIFY(QDir().mkpath("sounds") && uitest::WriteFile("sounds/broken.mp3", "this is not an mp3 file at all"));
    Sound s;
    for (const char* name : {"no such sound.mp3", "broken.mp3"}) {
      Play(s, name);
      QVERIFY2(!s.Loaded() && !s.Playing(), name);
    }
  }

  void aRealSoundLoadsAndANewOneCutsTheLast() {
    Sound s;
    Play(s, "comp-goodbye.mp3");
    if (!s.DeviceOpen()) QSKIP("no audio device, not even the dummy driver");
    Play(s, "ammopu3.mp3");
    QVERIFY(s.Loaded() && s.Playing());
    s.Command("Stop");
    QVERIFY(!s.Playing());
    s.Command("Close");
    s.Command("Play");  // nothing loaded: nothing happens
    QVERIFY(!s.Loaded() && !s.Playing());
  }
};

QTEST_MAIN(TestSound)
#include "tst_Sound.moc"
