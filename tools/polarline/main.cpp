#include <cstdio>
#include <exception>
#include <opencv2/core/utils/logger.hpp>

#include "platform/StandardStreams.h"
#include "polarline/errors.h"
#include "polarline/exit_code.h"
#include "tools/polarline/Interruption.h"
#include "tools/polarline/Run.h"
#include "tools/polarline/Terminal.h"

namespace {

int failed(int code, const std::exception& error) {
  std::fputs(terminal::printable("polarline: " + terminal::onOneLine(error.what()) + "\n").c_str(), terminal::errors());
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    standard_streams::keepPlaces();   // Before any file is opened.
    terminal::silenceDecoders();      // What matters of what others say is said in our own words.
    command::watchForInterruption();  // Before any thread is started.
    cv::utils::logging::setLogLevel(cv::utils::logging::LOG_LEVEL_SILENT);
    return command::run(argc, argv);
  } catch (const polarline::InputError& error) {
    return failed(polarline::kUnusable, error);
  } catch (const polarline::OutputError& error) {
    return failed(polarline::kNotWritten, error);
  } catch (const std::exception& error) {
    return failed(polarline::kNoFigure, error);
  }
}
