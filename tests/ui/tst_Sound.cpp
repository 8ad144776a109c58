// The sound device: where files are found, and that a missing or broken
// file plays nothing without harm.
#include <QDir>
#include <QFile>
#include <QTest>

#include "ui/Sound.h"
#include "ui/UiTestSupport.h"

using swui::Sound;

class TestSound : public QObject {
  Q_OBJECT

 private:
  uitest::FreshDir dir_;

  static void Play(Sound& s, const std::string& name) {
    s.Command("Stop");
    s.Command("Close");
    s.SetFileName(std::string(".\\sounds\\") + name);
    s.Command("Open");
    s.Command("Play");
  }

 private slots:
  void resolvesBesideTheProgramFirst() {
    QVERIFY(QDir().mkdir("sounds"));
    QFile local("sounds/comp-dead.mp3");
    QVERIFY(local.open(QIODevice::WriteOnly));
    local.write("x");
    local.close();
    QCOMPARE(Sound::Resolve(".\\sounds\\comp-dead.mp3"), std::string("sounds/comp-dead.mp3"));
    // Not in the current directory: the game's own sounds are found elsewhere.
    const std::string other = Sound::Resolve(".\\sounds\\comp-goodbye.mp3");
    QVERIFY(!other.empty());
    QVERIFY(QFile::exists(QString::fromStdString(other)));
    QVERIFY(other.ends_with("/sounds/comp-goodbye.mp3"));
    QCOMPARE(Sound::Resolve(".\\sounds\\no such sound.mp3"), std::string());
    QVERIFY(QFile::remove("sounds/comp-dead.mp3"));
  }

  void missingAndBrokenFilesAreSilent() {
    Sound s;
    Play(s, "no such sound.mp3");
    QVERIFY(!s.Loaded());
    QVERIFY(!s.Playing());

    QDir().mkpath("sounds");
    QFile broken("sounds/broken.mp3");
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("this is not an mp3 file at all");
    broken.close();
    Play(s, "broken.mp3");
    QVERIFY(!s.Loaded());
    QVERIFY(!s.Playing());
    s.Command("Rewind");  // unknown commands are ignored
  }

  void aRealSoundLoadsAndANewOneCutsTheLast() {
    Sound s;
    Play(s, "comp-goodbye.mp3");
    if (!s.DeviceOpen()) QSKIP("no audio device, not even the dummy driver");
    QVERIFY(s.Loaded());
    QVERIFY(s.Playing());
    Play(s, "ammopu3.mp3");
    QVERIFY(s.Loaded());
    QVERIFY(s.Playing());
    s.Command("Stop");
    QVERIFY(!s.Playing());
    s.Command("Close");
    QVERIFY(!s.Loaded());
    s.Command("Play");  // nothing loaded: nothing happens
    QVERIFY(!s.Playing());
  }
};

QTEST_MAIN(TestSound)
#include "tst_Sound.moc"
