#pragma once
// The whole program on the recording fake window, with no game started, and
// small helpers shared by the model tests.
#include <string>
#include <vector>

#include "Skitterweb.h"
#include "runtime/RuntimeError.h"
#include "support/FakeWindow.h"

namespace sw::test {

struct App {
  FakeWindow w;
  Skitterweb sw{w};
};

// "title: text" of every message box shown, in order.
inline std::vector<std::string> Shown(const FakeWindow& w) {
  std::vector<std::string> out;
  for (const ShownMsg& m : w.messages) out.push_back(m.szTitle + ": " + m.text);
  return out;
}

// The last sound played, or "" when none.
inline std::string LastSound(const FakeWindow& w) { return w.sounds.empty() ? "" : w.sounds.back(); }

// The number of the run-time error that f raises; 0 when it raises none.
int ErrorOf(auto&& f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.Number();
  }
  return 0;
}

}  // namespace sw::test
