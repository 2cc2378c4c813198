#pragma once

#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <pty.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <fstream>
#include <functional>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/InstalledCommand.h"

/// The installed command as a process of its own: what it printed and how it ended.
class CommandRun {
 public:
  struct Options {
    std::string folder;         ///< Working folder; empty: that of the test.
    std::string out;            ///< File for standard output; empty: it is collected.
    int columns = 0;            ///< Above 0: both streams are a terminal of that width, collected as `out`.
    long most_bytes = -1;       ///< From 0: no file may grow beyond.
    bool unprivileged = false;  ///< Permissions bind it, also where root runs the tests.
    std::vector<std::string> environment = {"LC_ALL=C"};
    /// Called whenever something was printed, with all that was printed before; the result is a signal to send, or 0.
    std::function<int(const std::string& out)> watch;
    double seconds_to_signal = -1.0;  ///< From 0: `late_signal` so long after the command began to mind SIGINT.
    int late_signal = SIGINT;
  };

  int exit_code = -1;  ///< -1: ended by a signal.
  int signal = 0;
  std::string out;
  std::string err;
  double first_line_seconds = -1.0;
  double first_line_work = -1.0;     ///< Seconds of processors that it had taken by then.
  double seconds_from_signal = 0.0;  ///< How long it went on after the signal.
  long kilobytes = 0;                ///< Most memory that it held.

  explicit CommandRun(const std::vector<std::string>& arguments) : CommandRun(arguments, Options{}) {}
  CommandRun(const std::vector<std::string>& arguments, const Options& options) : options_(options) {
    openStreams();
    process_ = fork();
    if (process_ < 0) throw std::runtime_error("no process");
    if (process_ == 0) become(arguments);
    closeEnd(write_ends_[0]);
    closeEnd(write_ends_[1]);
    collect();
    rusage usage{};
    int status = 0;
    wait4(process_, &status, 0, &usage);
    if (is_signalled_) seconds_from_signal = passed() - signalled_;
    kilobytes = usage.ru_maxrss;
    if (WIFEXITED(status)) exit_code = WEXITSTATUS(status);
    if (WIFSIGNALED(status)) signal = WTERMSIG(status);
  }

  /// Columns of the longest line on standard output, control sequences left out; a line that is written over counts by
  /// itself.
  std::size_t longestLine() const {
    const std::string plain = std::regex_replace(out, std::regex("\x1b\\[[0-9;]*[mK]"), "");
    std::size_t longest = 0;
    std::size_t length = 0;
    for (const char c : plain) {
      length = c == '\n' || c == '\r' ? 0 : length + 1;
      longest = std::max(longest, length);
    }
    return longest;
  }

 private:
  static void closeEnd(int& end) {
    if (end >= 0) close(end);
    end = -1;
  }
  double passed() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count(); }

  double worked() const {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(process_, &clock) != 0 || clock_gettime(clock, &time) != 0)
      throw std::runtime_error("no clock of the command");
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
  }

  void openStreams() {
    if (options_.columns > 0) {
      const winsize size{24, static_cast<unsigned short>(options_.columns), 0, 0};
      if (openpty(&read_ends_[0], &write_ends_[0], nullptr, nullptr, &size) != 0)
        throw std::runtime_error("no terminal");
      fcntl(read_ends_[0], F_SETFD, FD_CLOEXEC);
      return;
    }
    for (const std::size_t k : {0U, 1U}) {
      std::array<int, 2> ends{};
      if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
      read_ends_.at(k) = ends[0];
      write_ends_.at(k) = ends[1];
    }
  }

  [[noreturn]] void become(const std::vector<std::string>& arguments) const {
    const int target = options_.out.empty() ? write_ends_[0] : open(options_.out.c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(target, STDOUT_FILENO);
    dup2(write_ends_[1] >= 0 ? write_ends_[1] : target, STDERR_FILENO);
    if (!options_.folder.empty() && chdir(options_.folder.c_str()) != 0) _exit(99);
    if (options_.most_bytes >= 0) {
      const rlimit limit{static_cast<rlim_t>(options_.most_bytes), static_cast<rlim_t>(options_.most_bytes)};
      setrlimit(RLIMIT_FSIZE, &limit);
    }
    constexpr uid_t kNobody = 65534;
    if (options_.unprivileged && getuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(kNobody) != 0 || setuid(kNobody) != 0))
      _exit(99);
    std::vector<char*> words{const_cast<char*>("polarline")};
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    std::vector<char*> environment;
    for (const std::string& each : options_.environment) environment.push_back(const_cast<char*>(each.c_str()));
    environment.push_back(nullptr);
    execve(command_.c_str(), words.data(), environment.data());
    _exit(99);
  }

  bool take(std::size_t k) {
    std::array<char, 4096> piece{};
    const ssize_t count = read(read_ends_.at(k), piece.data(), piece.size());
    if (count <= 0) return false;
    (k == 0 ? out : err).append(piece.data(), static_cast<std::size_t>(count));
    if (k == 0 && first_line_seconds < 0.0 && out.find('\n') != std::string::npos) {
      first_line_work = worked();
      first_line_seconds = passed();
    }
    const int wanted = options_.watch && !is_signalled_ ? options_.watch(out) : 0;
    if (wanted != 0) send(wanted);
    return true;
  }

  void send(int which) {
    is_signalled_ = true;
    signalled_ = passed();
    kill(process_, which);
  }

  /// A busy machine may take its time to start the command; before it minds the signal, it would end without a word.
  void signalInTime() {
    if (minded_ < 0.0 && minds(SIGINT)) minded_ = passed();
    if (minded_ >= 0.0 && passed() > minded_ + options_.seconds_to_signal) send(options_.late_signal);
  }

  /// The command keeps signals waiting for the thread that takes them.
  bool minds(int which) const {
    std::ifstream status("/proc/" + std::to_string(process_) + "/status");
    for (std::string line; std::getline(status, line);) {
      if (line.rfind("SigBlk:", 0) == 0) return ((std::stoull(line.substr(7), nullptr, 16) >> (which - 1)) & 1U) != 0;
    }
    return false;
  }

  void collect() {
    constexpr double kPatience = 300.0;
    while (read_ends_[0] >= 0 || read_ends_[1] >= 0) {
      std::array<pollfd, 2> polled = {pollfd{read_ends_[0], POLLIN, 0}, pollfd{read_ends_[1], POLLIN, 0}};
      poll(polled.data(), polled.size(), 20);
      if (options_.seconds_to_signal >= 0.0 && !is_signalled_) signalInTime();
      if (passed() > kPatience) kill(process_, SIGKILL);
      for (const std::size_t k : {0U, 1U}) {
        if (read_ends_.at(k) >= 0 && polled.at(k).revents != 0 && !take(k)) closeEnd(read_ends_.at(k));
      }
    }
  }

  Options options_;
  const std::string& command_ = InstalledCommand::path();
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::array<int, 2> read_ends_{-1, -1};
  std::array<int, 2> write_ends_{-1, -1};
  pid_t process_ = -1;
  bool is_signalled_ = false;
  double minded_ = -1.0;
  double signalled_ = 0.0;
};
