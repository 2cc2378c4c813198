// row_disparity POLAR TARGET CALIBRATION LIST: the row differences of a set of stereo images.
#include <PolarLinePrecision.h>

#include <array>
#include <iostream>

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  std::vector<PolarResultRecord> pairs;
  const int status = CalPolarLinePrecision(argv[1], argv[2], argv[3], argv[4], &pairs);
  std::array<char, 1024> error{};
  if (status != 0) std::cerr << "status " << status << ": " << GetPolarErrorInfo(error.data()) << "\n";
  for (const PolarResultRecord& pair : pairs)
    std::cout << "mean |dy| " << pair.dy_means << " px, largest " << pair.dy_max << " px\n";
  return status;
}
