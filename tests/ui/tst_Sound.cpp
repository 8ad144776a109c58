// The sound device: the libraries are mapped only while a sound needs them;
// a new sound cuts off the last; failures play nothing.
#include <atomic>
#include <thread>

#include "ui/Sound.h"
#include "ui/UiTestSupport.h"

using swui::Sound;

namespace {

// Takes samples about as slowly as a sound card would, and writes down what happened to each
// clip (read once the player is idle).
struct Recorder : swui::SoundOutput {
  QString events;
  std::atomic<size_t> frames = 0;
  bool Open(long, int) override { events += "open "; return true; }
  long Write(const int16_t*, size_t n) override {
    std::this_thread::sleep_for(std::chrono::milliseconds(4));
    frames += n;
    return static_cast<long>(n);
  }
  void Drain() override { events += "drain "; }
  void Drop() override { events += "drop "; }
  void Close() override { events += "close "; }
};

void Play(Sound& s, const std::string& name) {
  s.SetFileName(".\\sounds\\" + name);
  for (const char* c : {"Stop", "Close", "Open", "Play"}) s.Command(c);
}

}  // namespace

class TestSound : public QObject {
  Q_OBJECT

  uitest::FreshDir dir_;  // no sounds here: the game's own are found elsewhere

 private slots:
  // First, while nothing has played: mpg123 is gone once a file is decoded; ALSA comes with an
  // opened device and goes when it is closed or fails to open.
  void theLibrariesAreMappedOnlyWhileASoundNeedsThem() {
    QVERIFY(!uitest::Mapped("libmpg123.so") && !uitest::Mapped("libasound.so"));
    Sound s{std::make_unique<Recorder>()};
    Play(s, "ammopu3.mp3");
    QVERIFY(s.Loaded() && !uitest::Mapped("libmpg123.so"));
    const auto alsa = swui::MakeAlsaOutput("null");  // ALSA's null device takes every sample
    QVERIFY(!uitest::Mapped("libasound.so") && alsa->Open(44100, 1) && uitest::Mapped("libasound.so"));
    alsa->Close();
    QVERIFY(!uitest::Mapped("libasound.so") && !swui::MakeAlsaOutput("no_such_device")->Open(44100, 1));
    QVERIFY(!uitest::Mapped("libasound.so"));
  }

  void aNewSoundCutsOffTheLast() {
    auto* rec = new Recorder;
    Sound s{std::unique_ptr<swui::SoundOutput>(rec)};
    Play(s, "comp-game over.mp3");  // a long one
    QTRY_VERIFY(rec->frames > 0);
    Play(s, "ammopu3.mp3");
    QTRY_VERIFY(!s.Playing());
    QCOMPARE(rec->events, "open drop close open drain close ");
  }

  // A missing file, a broken one (tried once), no sound card: nothing plays, and nothing fails.
  void failuresAreSilent() {
    QFile broken("sounds/broken.mp3");
    QVERIFY(QDir().mkpath("sounds") && broken.open(QIODevice::WriteOnly) && broken.write("not an mp3 file") > 0);
    broken.close();
    Sound s(swui::MakeAlsaOutput("no_such_device"));
    for (const char* name : {"no such sound.mp3", "broken.mp3", "broken.mp3"}) {
      Play(s, name);
      QVERIFY2(!s.Loaded() && !s.Playing() && s.Decodes() <= 1, name);
    }
    Play(s, "comp-dead.mp3");
    QTRY_VERIFY(s.Loaded() && !s.Playing());
  }
};

QTEST_MAIN(TestSound)
#include "tst_Sound.moc"
