// exported SET: the same figures by the exported function.
#include <PolarLinePrecision.h>

#include <cstdio>
#include <iostream>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string set = argv[1];
  std::cout.setstate(std::ios::failbit);  // Here the library speaks; the figures alone are wanted.
  std::vector<PolarResultRecord> pairs;
  const int status = CalPolarLinePrecision((set + "/polar.txt").c_str(), (set + "/target.ini").c_str(),
                                           (set + "/calib.json").c_str(), (set + "/list.txt").c_str(), &pairs);
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    std::printf("%zu tri_rms %a\n%zu tri_max %a\n", i, pairs[i].tri_rms, i, pairs[i].tri_max);
    std::printf("%zu dy_means %a\n%zu dy_min %a\n", i, pairs[i].dy_means, i, pairs[i].dy_min);
    std::printf("%zu dy_max %a\n", i, pairs[i].dy_max);
  }
  return status;
}
