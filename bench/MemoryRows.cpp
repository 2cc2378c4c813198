#include <fmt/format.h>
#include <malloc.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "bench/Groups.h"
#include "bench/PairStage.h"
#include "bench/Scratch.h"
#include "bench/Stopwatch.h"

namespace {

constexpr double kMega = 1e6;
constexpr double kBytesPerKilo = 1024.0;
/// Of the largest board with every table: bytes in memory, and the time that it may take beyond the writing alone.
constexpr double kMostBytesOfLargest = 1.5e9;
constexpr double kMostSecondsOfLargest = 4.0;

/// Bytes of this process by a line of its status; 0 where the system has none.
double statusBytes(const std::string& name) {
  std::ifstream file("/proc/self/status");
  for (std::string word; file >> word;) {
    double kilobytes = 0.0;
    if (word == name + ":" && file >> kilobytes) return kilobytes * kBytesPerKilo;
  }
  return 0.0;
}

/// Bytes that the process holds at the most while something runs, beyond those that it held before.
template <typename Run>
double peakBeyond(const Run& run) {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";  // The peak begins anew.
  const double before = statusBytes("VmRSS");
  run();
  return statusBytes("VmHWM") - before;
}

double bytesBelow(const std::string& folder) {
  double bytes = 0.0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) bytes += static_cast<double>(entry.file_size());
  }
  return bytes;
}

Spread once(double value) { return {value, value, value}; }

void addMemory(const std::string& preset, int pairs, Table& table) {
  PairStage stage(preset, pairs);
  const double pictures = stage.pictureBytes();
  const double peak = pictures + peakBeyond([&] { stage.wholeRun(""); });
  table.add({.group = "memory",
             .name = fmt::format("{}, {} pair{}, no files", preset, pairs, pairs == 1 ? "" : "s"),
             .against = "its pictures",
             .unit = "MB",
             .ours = once(peak / kMega),
             .theirs = once(pictures / kMega),
             .ratio = once(peak / pictures)});
}

/// Seconds that the machine needs to write as many bytes, and nothing else.
double writingSeconds(double bytes, const std::string& file) {
  const std::string block(1U << 20U, 'x');
  const double start = wallSeconds();
  std::ofstream out(file, std::ios::binary);
  for (double written = 0.0; written < bytes; written += static_cast<double>(block.size())) out << block;
  out.close();
  return wallSeconds() - start;
}

/// The board of the defaults, 5183 dots, with every table: what it holds in memory, and how long it takes.
void addLargest(Table& table) {
  PairStage stage("ring_default_board", 1);
  const Scratch scratch;
  const double start = wallSeconds();
  const double peak = stage.pictureBytes() + peakBeyond([&] { stage.wholeRun(scratch.path()); });
  const double run_seconds = wallSeconds() - start;
  const double written = bytesBelow(scratch.path());
  const double writing = writingSeconds(written, scratch.path() + "/plain");
  table.add({.group = "memory",
             .name = "5183 dots, every table",
             .against = "1.5 GB",
             .unit = "MB",
             .ours = once(peak / kMega),
             .theirs = once(kMostBytesOfLargest / kMega),
             .ratio = once(peak / kMostBytesOfLargest),
             .goal = 1.0});
  table.add({.group = "memory",
             .name = "5183 dots, every table: beyond the writing",
             .against = "4 s",
             .ours = once(1000.0 * (run_seconds - writing)),
             .theirs = once(1000.0 * kMostSecondsOfLargest),
             .ratio = once((run_seconds - writing) / kMostSecondsOfLargest),
             .goal = 1.0,
             .note = fmt::format("{:.0f} MB written, by the clock on the wall", written / kMega)});
}

}  // namespace

void memoryRows(const Plan& plan, Table& table) {
  if (plan.quick) {
    addMemory("ring_320", 1, table);
    return;
  }
  addMemory("ring_640", 1, table);
  addMemory("ring_640", 20, table);
  addMemory("big_1280", 5, table);
  addMemory("ring_small", 2, table);
  addLargest(table);
}
