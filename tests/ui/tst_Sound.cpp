// The sound device: where files are found; each file decoded once; a new
// sound cuts off the last; an idle player sleeps; failures are silent. The
// samples go to a recording output instead of a sound card.
#include <QTest>
#include <atomic>
#include <mutex>
#include <thread>

#include "ui/Sound.h"
#include "ui/UiTestSupport.h"

using swui::Sound;

namespace {

// Takes samples as slowly as a sound card would, about 1024 frames per 4 ms,
// and records what happened to each clip.
struct Recorder {
  std::mutex m;
  std::vector<std::string> events;  // "open 44100/2", "drop", "drain", "close"
  size_t frames = 0;
  bool device = true;
  void Log(std::string e) {
    std::lock_guard lock(m);
    events.push_back(std::move(e));
  }
  std::vector<std::string> Events() {
    std::lock_guard lock(m);
    return events;
  }
};

class RecordingOutput : public swui::SoundOutput {
 public:
  explicit RecordingOutput(Recorder& r) : r_(r) {}
  bool Open(long rate, int channels) override {
    r_.Log("open " + std::to_string(rate) + "/" + std::to_string(channels));
    return r_.device;
  }
  long Write(const int16_t*, size_t frames) override {
    std::this_thread::sleep_for(std::chrono::milliseconds(4));
    std::lock_guard lock(r_.m);
    r_.frames += frames;
    return static_cast<long>(frames);
  }
  void Drain() override { r_.Log("drain"); }
  void Drop() override { r_.Log("drop"); }
  void Close() override { r_.Log("close"); }

 private:
  Recorder& r_;
};

void Play(Sound& s, const std::string& name) {
  for (const char* c : {"Stop", "Close"}) s.Command(c);
  s.SetFileName(std::string(".\\sounds\\") + name);
  for (const char* c : {"Open", "Play"}) s.Command(c);
}

}  // namespace

class TestSound : public QObject {
  Q_OBJECT

 private:
  uitest::FreshDir dir_;

 private slots:
  void resolvesBesideTheProgramFirst() {
    QVERIFY(QDir().mkpath("sounds") && uitest::WriteFile("sounds/comp-dead.mp3", "x"));
    QCOMPARE(Sound::Resolve(".\\sounds\\comp-dead.mp3"), std::string("sounds/comp-dead.mp3"));
    // Not in the current directory: the game's own sounds are found elsewhere.
    const std::string other = Sound::Resolve(".\\sounds\\comp-goodbye.mp3");
    QVERIFY(other.ends_with("/sounds/comp-goodbye.mp3") && QFile::exists(QString::fromStdString(other)));
    QCOMPARE(Sound::Resolve(".\\sounds\\no such sound.mp3"), std::string());
    QVERIFY(QFile::remove("sounds/comp-dead.mp3"));
  }

  void decodesEachFileOnceAndPlaysItWhole() {
    Recorder rec;
    Sound s(std::make_unique<RecordingOutput>(rec));
    Play(s, "ammopu3.mp3");
    QVERIFY(s.Loaded());
    QCOMPARE(s.Decodes(), 1);
    QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 10000);
    const auto events = rec.Events();
    QCOMPARE(events.size(), size_t{3});
    QVERIFY2(events[0] == "open 44100/2" || events[0] == "open 44100/1" || events[0] == "open 22050/1" ||
                 events[0] == "open 48000/2",
             events[0].c_str());
    QCOMPARE(events[1], std::string("drain"));
    QVERIFY(rec.frames > 2000);  // a short effect, but more than a click
    const size_t whole = rec.frames;

    // Again, and a second sound: the first comes from memory.
    Play(s, "ammopu3.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 10000);
    QCOMPARE(rec.frames, 2 * whole);
    Play(s, "comp-dead.mp3");
    Play(s, "ammopu3.mp3");
    QCOMPARE(s.Decodes(), 2);
  }

  void aNewSoundCutsOffTheLastAndStopStops() {
    Recorder rec;
    Sound s(std::make_unique<RecordingOutput>(rec));
    Play(s, "comp-game over.mp3");  // a long one
    QTRY_VERIFY_WITH_TIMEOUT(rec.frames > 0, 5000);
    Play(s, "ammopu3.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 10000);
    const auto events = rec.Events();
    // The first clip is dropped part way; the second plays out.
    std::string all;
    for (const auto& e : events) all += e + "; ";
    QVERIFY2(events.size() == 6 && events[1] == "drop" && events[4] == "drain", all.c_str());

    Play(s, "comp-game over.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(rec.Events().size() == 7, 5000);
    s.Command("Stop");
    QVERIFY(!s.Playing());
    QTRY_VERIFY_WITH_TIMEOUT(rec.Events().size() == 9, 5000);
    QCOMPARE(rec.Events()[7], std::string("drop"));
  }

  void anIdlePlayerSleeps() {
    Recorder rec;
    Sound s(std::make_unique<RecordingOutput>(rec));
    Play(s, "ammopu3.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(!s.Playing() && rec.Events().size() == 3, 10000);
    const long woken = s.Player()->Wakeups();
    QTest::qWait(300);
    QCOMPARE(s.Player()->Wakeups(), woken);
  }

  void failuresAreSilent() {
    QVERIFY(QDir().mkpath("sounds") && uitest::WriteFile("sounds/broken.mp3", "this is not an mp3 file at all"));
    Recorder rec;
    rec.device = false;  // no sound card
    Sound s(std::make_unique<RecordingOutput>(rec));
    for (const char* name : {"no such sound.mp3", "broken.mp3"}) {
      Play(s, name);
      QVERIFY2(!s.Loaded() && !s.Playing(), name);
    }
    Play(s, "ammopu3.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 5000);
    QCOMPARE(rec.frames, size_t{0});
    s.Command("Close");
    s.Command("Play");  // nothing loaded: nothing happens
    QVERIFY(!s.Loaded() && !s.Playing());
  }
};

QTEST_MAIN(TestSound)
#include "tst_Sound.moc"
