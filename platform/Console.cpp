#include "platform/Console.h"

#include <iomanip>
#include <iostream>

namespace console {
namespace {

/// Null: the process's own.
thread_local std::ostream* current_out = nullptr;
thread_local std::ostream* current_err = nullptr;

}  // namespace

std::ostream& out() { return current_out == nullptr ? std::cout : *current_out; }

std::ostream& err() { return current_err == nullptr ? std::cerr : *current_err; }

Redirection::Redirection(std::ostream& out, std::ostream& err) : out_before_(current_out), err_before_(current_err) {
  current_out = &out;
  current_err = &err;
}

Redirection::~Redirection() {
  current_out = out_before_;
  current_err = err_before_;
}

void useFixedNotation() { out() << std::fixed << std::setprecision(8); }

}  // namespace console
