#include <CLI/CLI.hpp>
#include <clocale>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>
#include <locale>
#include <opencv2/core/utility.hpp>
#include <stdexcept>
#include <string>

#include "tools/figures/Runs.h"

namespace {

/// The locale of C and of C++, as a program of another country has it.
void takeLocale(const std::string& name) {
  std::locale::global(std::locale(name));
  if (std::setlocale(LC_ALL, name.c_str()) == nullptr || *std::localeconv()->decimal_point != ',')
    throw std::runtime_error(name + " is no locale with a decimal comma");
}

int run(int argc, char** argv) {
  CLI::App app(
      "Walks rendered sets through every run and writes every figure down.\nExit codes: 0 done, 1 a run failed.");
  app.name("figures");
  std::vector<std::string> sets;
  std::string results, locale;
  int threads = 0;
  bool with_pictures = false;
  app.add_option("RESULTS", results, "Folder to write into, a folder for each set")->required();
  app.add_option("SETS", sets, "Folders made by `scene render`")->required()->check(CLI::ExistingDirectory);
  app.add_option("--threads", threads, "Threads that the images' library may use; else as many as it likes")
      ->envname("FIGURES_THREADS");
  app.add_option("--locale", locale, "Locale with a decimal comma for the whole program")->envname("FIGURES_LOCALE");
  app.add_flag("--pictures", with_pictures, "Write the pictures, too")->envname("FIGURES_PICTURES");
  CLI11_PARSE(app, argc, argv);
  if (!locale.empty()) takeLocale(locale);
  if (threads > 0) cv::setNumThreads(threads);
  bool good = true;
  for (const std::string& set : sets) {
    const std::filesystem::path folder(set);
    std::cout << folder.filename().string() << '\n';
    if (figures::walkRuns(folder, std::filesystem::path(results) / folder.filename(), with_pictures)) continue;
    std::cerr << "a run of " << set << " failed\n";
    good = false;
  }
  return good ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) try { return run(argc, argv); } catch (const std::exception& failure) {
  std::fputs(failure.what(), stderr);
  return 1;
}
