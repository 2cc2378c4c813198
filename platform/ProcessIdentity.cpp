#include "platform/ProcessIdentity.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <system_error>

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>

#include <cerrno>
#include <csignal>
#endif

namespace process_identity {

#if defined(_WIN32)

Identity own() { return {"", "", _getpid(), ""}; }
bool isGone(const Identity& /*process*/) { return false; }

#else

namespace {

std::string textOf(const std::string& path) {
  std::ifstream stream(path);
  std::string text;
  std::getline(stream, text);
  return text;
}

std::string hostName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

/// Two containers of one machine see processes of their own.
std::string machine() {
  std::error_code failure;
  const std::filesystem::path seen = std::filesystem::read_symlink("/proc/self/ns/pid", failure);
  const std::string boot = textOf("/proc/sys/kernel/random/boot_id");
  return boot.empty() || failure ? "" : boot + " " + seen.string();
}

/// The 22nd field of the process's line; the second, its name, may hold blanks and brackets.
std::string beginOf(long process) {
  const std::string line = textOf("/proc/" + std::to_string(process) + "/stat");
  const std::size_t name_end = line.rfind(')');
  if (name_end == std::string::npos) return {};
  std::istringstream fields(line.substr(name_end + 1));
  constexpr int kFromStateToBegin = 20;
  std::string field;
  for (int k = 0; k < kFromStateToBegin; ++k) fields >> field;
  return field;
}

}  // namespace

Identity own() {
  const long process = getpid();
  return {hostName(), machine(), process, beginOf(process)};
}

bool isGone(const Identity& process) {
  const std::string here = machine();
  if (here.empty() || process.machine != here || process.process <= 0) return false;
  if (kill(static_cast<pid_t>(process.process), 0) != 0 && errno == ESRCH) return true;
  const std::string began = beginOf(process.process);
  return !began.empty() && began != process.began;
}

#endif

namespace {

std::string hashOf(const std::string& machine) {
  std::array<char, 16> digits{};
  char* const end = std::to_chars(digits.begin(), digits.end(), std::hash<std::string>{}(machine), 16).ptr;
  return {digits.begin(), end};
}

/// Takes what stands before the next '-' away.
std::string_view takeField(std::string_view& rest) {
  const std::size_t end = rest.find('-');
  const std::string_view field = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return field;
}

}  // namespace

std::string inName(const Identity& process) {
  return std::to_string(process.process) + "-" + hashOf(process.machine) + "-" + process.began;
}

bool isGoneByName(std::string_view part) {
  Identity process = own();
  const std::string_view number = takeField(part);
  const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), process.process);
  if (failure != std::errc() || end != number.data() + number.size()) return false;
  if (takeField(part) != hashOf(process.machine)) return false;
  process.began = takeField(part);
  return !process.began.empty() && isGone(process);
}

}  // namespace process_identity
