#include "fuzz/Harness.h"
#include "input/ImageList.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    ImagePairList images;
    ReadImageList(fuzzing::writeInput("list.txt", data, size), images);
  });
}
