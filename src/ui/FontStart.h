#pragma once
// The desktop's font configuration, read on a thread of its own while the program connects to the
// display and sets up its first game: fontconfig parses its XML files once, on first use, and that
// is the longest single step before a window with text can show. Text is measured only after
// Wait(): a second reader would parse the files again.
#include <thread>

namespace swui {

class FontConfigReader {
 public:
  FontConfigReader();  // starts reading, where the toolkit reads fonts through fontconfig
  ~FontConfigReader();
  FontConfigReader(const FontConfigReader&) = delete;
  FontConfigReader& operator=(const FontConfigReader&) = delete;
  // Returns once the configuration is read.
  void Wait();

 private:
  std::thread thread_;
};

}  // namespace swui
