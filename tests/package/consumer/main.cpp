#include <PolarLinePrecision.h>

#include <cstdio>
#include <string>

int main() {
  char version[6];
  std::vector<PolarResultRecord> results;
  const bool told = GetVersionPolarLinePrecision(version);
  const int status = CalPolarLinePrecision("x_y: 0", "board_type: 2", "nowhere.json", "nowhere.txt", &results);
  std::printf("version %s, status %d\n", version, status);
  return told && std::string(version) == "1.3.3" && status == -4 && results.empty() ? 0 : 1;
}
