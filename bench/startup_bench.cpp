// Start-up benchmark: runs each program in turn, interleaved, and reports the
// median time from exec to its first frame on screen, the CPU it used by
// then, the frames it painted at start and its peak memory. The programs
// report their first frame through the SKITTERWEB_FIRST_FRAME probe.
//   startup_bench RUNS DIR PROGRAM...   (each run starts in DIR)
#include <fcntl.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Sample {
  double wallMs = 0, cpuMs = 0, userMs = 0, faults = 0, rssMb = 0;
  int paints = 0;
};

long long Now() {
  timespec t{};
  clock_gettime(CLOCK_MONOTONIC, &t);
  return t.tv_sec * 1000000000LL + t.tv_nsec;
}

bool RunOnce(const char* program, const char* dir, Sample& out) {
  int fds[2];
  if (pipe(fds) != 0) return false;
  const long long start = Now();
  const pid_t pid = fork();
  if (pid == 0) {
    close(fds[0]);
    setenv("SKITTERWEB_FIRST_FRAME", std::to_string(fds[1]).c_str(), 1);
    if (chdir(dir) != 0) _exit(127);
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, 2);
    execl(program, program, static_cast<char*>(nullptr));
    _exit(127);
  }
  close(fds[1]);
  char buf[128] = {};
  ssize_t got = 0;
  for (ssize_t n; (n = read(fds[0], buf + got, sizeof buf - 1 - static_cast<size_t>(got))) > 0;) got += n;
  close(fds[0]);
  int status = 0;
  rusage ru{};
  if (wait4(pid, &status, 0, &ru) != pid) return false;
  long long frame = 0, cpu = 0, user = 0;
  if (std::sscanf(buf, "%lld %lld %d %lld %lf", &frame, &cpu, &out.paints, &user, &out.faults) != 5) {
    std::fprintf(stderr, "exit status %d, report \"%s\"\n", status, buf);
    return false;
  }
  out.wallMs = static_cast<double>(frame - start) / 1e6;
  out.cpuMs = static_cast<double>(cpu) / 1e6;
  out.userMs = static_cast<double>(user) / 1e6;
  out.rssMb = static_cast<double>(ru.ru_maxrss) / 1024.0;
  return true;
}

double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v.empty() ? 0 : (v[v.size() / 2] + v[(v.size() - 1) / 2]) / 2;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: %s RUNS DIR PROGRAM...\n", argv[0]);
    return 2;
  }
  const int runs = std::atoi(argv[1]);
  // Each run starts in DIR: the programs are named by their full paths.
  for (int i = 3; i < argc; ++i)
    if (char* full = realpath(argv[i], nullptr)) argv[i] = full;
  const char* dir = argv[2];
  const int programs = argc - 3;
  std::vector<std::vector<Sample>> samples(static_cast<size_t>(programs));
  for (int r = 0; r < runs; ++r)
    for (int k = 0; k < programs; ++k) {
      // Alternate the order so that neither program always runs first.
      const int p = r % 2 == 0 ? k : programs - 1 - k;
      Sample s;
      if (!RunOnce(argv[3 + p], dir, s)) {
        std::fprintf(stderr, "%s: no first frame reported\n", argv[3 + p]);
        return 1;
      }
      samples[static_cast<size_t>(p)].push_back(s);
    }
  std::printf("%-28s %12s %12s %8s %10s %9s %10s\n", "program", "to frame ms", "CPU ms", "frames", "peak MB", "user ms",
              "faults");
  for (int p = 0; p < programs; ++p) {
    std::vector<double> wall, cpu, user, faults, rss, paints;
    for (const Sample& s : samples[static_cast<size_t>(p)]) {
      wall.push_back(s.wallMs);
      cpu.push_back(s.cpuMs);
      user.push_back(s.userMs);
      faults.push_back(s.faults);
      rss.push_back(s.rssMb);
      paints.push_back(s.paints);
    }
    std::string name = argv[3 + p];
    name = name.substr(name.find_last_of('/') + 1);
    std::printf("%-28s %12.1f %12.1f %8.0f %10.1f %9.1f %10.0f\n", name.c_str(), Median(wall), Median(cpu),
                Median(paints), Median(rss), Median(user), Median(faults));
  }
  return 0;
}
