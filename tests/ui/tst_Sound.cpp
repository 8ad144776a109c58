// The sound device: where files are found; each file decoded once; a new
// sound cuts off the last; an idle player sleeps; failures are silent. The
// samples go to a recording output instead of a sound card.
#include <unistd.h>

#include <QTemporaryFile>
#include <QTest>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <mutex>
#include <thread>
#include <vector>

#include "ui/Sound.h"
#include "ui/UiTestSupport.h"

using swui::Sound;

namespace {

// Takes samples as slowly as a sound card would, about 1024 frames per 4 ms,
// and records what happened to each clip.
struct Recorder {
  std::mutex m;
  std::vector<std::string> events;  // "open 44100/2", "drop", "drain", "close"
  std::atomic<size_t> frames = 0;
  bool device = true;
  long queued = 0;   // what the device says it still holds once a clip is written
  std::atomic<int> queries = 0;
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
    r_.frames += frames;
    return static_cast<long>(frames);
  }
  long Queued() override {
    ++r_.queries;
    return r_.queued;
  }
  void Drain() override { r_.Log("drain"); }
  void Drop() override { r_.Log("drop"); }
  void Close() override { r_.Log("close"); }

 private:
  Recorder& r_;
};

// What the first frame header of an MPEG-1 layer III file says: rate, channels and the
// length in samples per channel that its size and bitrate give (the tag frame aside).
struct Mp3Header {
  long rate = 0;
  int channels = 0;
  long samples = 0;
};

Mp3Header ReadHeader(const QString& path) {
  QFile f(path);
  if (!f.open(QIODevice::ReadOnly)) return {};
  const QByteArray b = f.read(4);
  const auto byte = [&b](int i) { return static_cast<unsigned char>(b[i]); };
  if (b.size() < 4 || byte(0) != 0xFF || (byte(1) & 0xFE) != 0xFA) return {};  // MPEG-1 layer III
  static constexpr std::array<long, 15> kKbps{0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
  static constexpr std::array<long, 3> kRates{44100, 48000, 32000};
  const long kbps = kKbps[std::min<size_t>(byte(2) >> 4, 14)];
  if (kbps == 0 || (byte(2) >> 2 & 3) == 3) return {};
  Mp3Header h;
  h.rate = kRates[byte(2) >> 2 & 3];
  h.channels = (byte(3) >> 6) == 3 ? 1 : 2;
  const long frameBytes = 144 * kbps * 1000 / h.rate;
  h.samples = (f.size() / frameBytes - 1) * 1152;
  return h;
}

// Runs `body` with stderr going to a file; what was written there.
template <typename F>
QByteArray Stderr(F body) {
  QTemporaryFile file;
  if (!file.open()) return "cannot capture stderr";
  std::fflush(stderr);
  const int saved = ::dup(2);
  ::dup2(file.handle(), 2);
  body();
  std::fflush(stderr);
  ::dup2(saved, 2);
  ::close(saved);
  file.seek(0);
  return file.readAll();
}

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
  // First, while nothing has played: the libraries come with a sound and go when it is done.
  void theSoundLibrariesAreHeldOnlyWhileASoundNeedsThem() {
    QVERIFY(!uitest::Mapped("libmpg123.so") && !uitest::Mapped("libasound.so"));
    Recorder rec;
    {
      Sound s(std::make_unique<RecordingOutput>(rec));
      Play(s, "ammopu3.mp3");
      QVERIFY(s.Loaded());
      QVERIFY(!uitest::Mapped("libmpg123.so"));  // decoded: the samples are kept, the decoder is not
      QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 5000);
      QVERIFY(rec.frames.load() > 0);
    }
    QVERIFY(!uitest::Mapped("libasound.so"));  // the recording output needs no device
    // ALSA's null device takes every sample: ALSA is loaded while it is open, and only then.
    const auto alsa = swui::MakeAlsaOutput("null");
    QVERIFY(!uitest::Mapped("libasound.so"));
    for (int round = 0; round < 2; ++round) {
      QVERIFY(alsa->Open(44100, 1));
      QVERIFY(uitest::Mapped("libasound.so"));
      const std::vector<int16_t> quiet(2048, 0);
      QCOMPARE(alsa->Write(quiet.data(), 1024), 1024L);
      alsa->Drop();
      alsa->Close();
      QVERIFY(!uitest::Mapped("libasound.so"));
    }
    QVERIFY(!swui::MakeAlsaOutput("skitterweb_no_such_device")->Open(44100, 1));
    QVERIFY(!uitest::Mapped("libasound.so"));
  }

  void resolvesBesideTheProgramFirst() {
    QVERIFY(QDir().mkpath("sounds") && uitest::WriteFile("sounds/comp-dead.mp3", "x"));
    QCOMPARE(Sound::Resolve(".\\sounds\\comp-dead.mp3"), std::string("sounds/comp-dead.mp3"));
    // Not in the current directory: the game's own sounds are found elsewhere.
    const std::string other = Sound::Resolve(".\\sounds\\comp-goodbye.mp3");
    QVERIFY(other.ends_with("/sounds/comp-goodbye.mp3") && QFile::exists(QString::fromStdString(other)));
    QCOMPARE(Sound::Resolve(".\\sounds\\no such sound.mp3"), std::string());
    QVERIFY(QFile::remove("sounds/comp-dead.mp3"));
  }

  void decodesEveryEffectToTheLengthItsHeaderGives() {
    const QDir dir(QString::fromStdString(Sound::Resolve(".\\sounds\\ammopu3.mp3"))
                       .section('/', 0, -2));
    const QStringList names = dir.entryList({"*.mp3"}, QDir::Files);
    QCOMPARE(names.size(), 16);
    for (const QString& name : names) {
      const QString path = dir.filePath(name);
      const Mp3Header h = ReadHeader(path);
      QVERIFY2(h.rate > 0, qPrintable(name));
      const auto clip = swui::DecodeMp3(path.toStdString());
      QVERIFY2(clip != nullptr, qPrintable(name));
      QCOMPARE(clip->rate, h.rate);
      QCOMPARE(clip->channels, h.channels);
      QCOMPARE(clip->samples.size(), clip->Frames() * static_cast<size_t>(h.channels));
      // Kept in a block of its own size, not one grown by doubling.
      QVERIFY2(clip->samples.capacity() <= clip->samples.size() + clip->samples.size() / 8,
               qPrintable(QString("%1: %2 samples in room for %3").arg(name).arg(clip->samples.size())
                              .arg(clip->samples.capacity())));
      // Within three MP3 frames: the encoder's delay and padding are taken off.
      const long frames = static_cast<long>(clip->Frames());
      QVERIFY2(frames <= h.samples && frames > h.samples - 3 * 1152,
               qPrintable(QString("%1: %2 frames, header says %3").arg(name).arg(frames).arg(h.samples)));
      const auto [lo, hi] = std::minmax_element(clip->samples.begin(), clip->samples.end());
      QVERIFY2(*hi > 1000 && *lo < -1000, qPrintable(name));  // sound, not silence
    }
  }

  void decodesEachFileOnceAndPlaysItWhole() {
    const auto clip = swui::DecodeMp3(Sound::Resolve(".\\sounds\\ammopu3.mp3"));
    QVERIFY(clip != nullptr);
    Recorder rec;
    Sound s(std::make_unique<RecordingOutput>(rec));
    Play(s, "ammopu3.mp3");
    QVERIFY(s.Loaded());
    QCOMPARE(s.Decodes(), 1);
    QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 10000);
    const std::vector<std::string> played{
        "open " + std::to_string(clip->rate) + "/" + std::to_string(clip->channels), "drain", "close"};
    QCOMPARE(rec.Events(), played);
    QCOMPARE(rec.frames.load(), clip->Frames());

    // Again, and a second sound: the first comes from memory.
    Play(s, "ammopu3.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 10000);
    QCOMPARE(rec.frames.load(), 2 * clip->Frames());
    QCOMPARE(s.Decodes(), 1);
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

  void stopCutsOffWhatTheDeviceStillHolds() {
    Recorder rec;
    rec.queued = 3600L * 44100;  // an hour still to play once the clip is written
    auto s = std::make_unique<Sound>(std::make_unique<RecordingOutput>(rec));
    Play(*s, "ammopu3.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(rec.queries > 0, 5000);
    s->Command("Stop");
    QVERIFY(!s->Playing());
    QTRY_COMPARE_WITH_TIMEOUT(rec.Events().size(), size_t{3}, 5000);
    QCOMPARE(rec.Events()[1], std::string("drop"));
    // Ending the program while a tail plays stops it too, instead of waiting for it.
    Play(*s, "ammopu3.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(rec.queries > 1, 5000);
    s.reset();
    QCOMPARE(rec.Events().size(), size_t{6});
    QCOMPARE(rec.Events()[4], std::string("drop"));
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
    for (const char* name : {"no such sound.mp3", "broken.mp3", "broken.mp3"}) {
      Play(s, name);
      QVERIFY2(!s.Loaded() && !s.Playing(), name);
    }
    QCOMPARE(s.Decodes(), 1);  // a file that failed is not tried again
    Play(s, "ammopu3.mp3");
    QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 5000);
    QCOMPARE(rec.frames.load(), size_t{0});
    s.Command("Close");
    s.Command("Play");  // nothing loaded: nothing happens
    QVERIFY(!s.Loaded() && !s.Playing());
  }

  void aMissingAlsaDeviceSaysNothing() {
    // The real output, on a device no machine has: ALSA's own complaints stay off stderr.
    const QByteArray said = Stderr([] {
      Sound s(swui::MakeAlsaOutput("skitterweb_no_such_device"));
      Play(s, "comp-dead.mp3");
      QVERIFY(s.Loaded());
      QTRY_VERIFY_WITH_TIMEOUT(!s.Playing(), 5000);
      QCOMPARE(s.Player()->Wakeups(), 1L);
    });
    QCOMPARE(said, QByteArray());
  }
};

QTEST_MAIN(TestSound)
#include "tst_Sound.moc"
