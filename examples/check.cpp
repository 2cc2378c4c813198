// check SET [LIMIT...]: checks a set, for instance against 'dy_means<=0.1'.
#include <polarline/check.h>

#include <iostream>

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  polarline::Set set;
  set.folder = argv[1];
  polarline::CheckOptions options;
  options.limits.assign(argv + 2, argv + argc);
  const polarline::Check check = polarline::check(set, options);
  if (check.verdict == polarline::Verdict::kError)
    std::cerr << check.status.text << "\n" << check.status.advice << "\n";
  for (const polarline::FigureSummary& figure : check.summary)
    if (figure.name == "dy_means") std::cout << "mean |dy| " << figure.mean << " px\n";
  if (check.verdict != polarline::Verdict::kError)
    std::cout << (check.verdict == polarline::Verdict::kPass ? "every limit holds\n" : "a limit is exceeded\n");
  return check.status.exit_code;
}
