// check SET: the figures of a set by polarline::check, to the last bit. Fails unless the failure of a set that isn't
// there can be caught.
#include <polarline/check.h>
#include <polarline/errors.h>

#include <cstdio>

namespace {

bool catchesInputError() {
  polarline::Set nowhere;
  nowhere.folder = "/nowhere";
  try {
    polarline::openSet(nowhere);
  } catch (const polarline::InputError& error) {
    return std::string(error.what()).find("/nowhere") != std::string::npos;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || !catchesInputError()) return 2;
  polarline::Set set;
  set.folder = argv[1];
  const polarline::Check check = polarline::check(set);
  for (const polarline::PairCheck& pair : check.pairs) {
    for (const char* name : {"tri_rms", "tri_max", "dy_means", "dy_min", "dy_max"}) {
      const polarline::Figure* const figure = pair.figure(name);
      if (figure == nullptr || figure->values.size() != 1) return 3;
      std::printf("%zu %s %a\n", pair.index, name, figure->values[0]);
    }
  }
  return check.verdict == polarline::Verdict::kPass ? 0 : 4;
}
