#include <fmt/format.h>

#include <fstream>
#include <ios>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "check/set/Fingerprint.h"
#include "platform/BoundedInput.h"
#include "platform/Pieces.h"
#include "polarline/batch.h"
#include "polarline/errors.h"
#include "store/work/MetadataEntry.h"

namespace polarline {
namespace {

BatchSet setOf(const std::string& line, const std::string& place) {
  const std::vector<std::string> columns = piecesOf(line, '\t');
  BatchSet set;
  set.folder = columns.at(0);
  if (set.folder.empty()) throw InputError(place, "begins with a TAB; the folder of a set was wanted first");
  for (std::size_t k = 1; k < columns.size(); ++k) {
    if (!columns[k].empty()) addMetadata(columns[k], place, set.metadata);
  }
  return set;
}

}  // namespace

std::vector<BatchSet> parseBatchList(const std::string& text, const std::string& name) {
  std::vector<BatchSet> sets;
  const std::string list = sha256(text);
  std::size_t number = 0;
  for (std::string line : piecesOf(text, '\n')) {
    ++number;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.find_first_not_of(" \t") == std::string::npos || line.front() == '#') continue;
    sets.push_back(setOf(line, fmt::format("{}, line {}", name, number)));
    sets.back().line = number;
    sets.back().list = list;
  }
  if (sets.empty()) throw InputError(name, "names no set; a folder a line was wanted");
  return sets;
}

std::vector<BatchSet> readBatchList(const std::string& path) {
  std::ifstream file;
  if (path != "-") file.open(path, std::ios::binary);
  if (!file) throw InputError(path, "cannot be read; a list of sets was wanted, a folder a line");
  try {
    return parseBatchList(bounded::readText(path == "-" ? std::cin : file), path == "-" ? "standard input" : path);
  } catch (const std::length_error&) {
    throw InputError(path, "is longer than any list of sets");
  } catch (const std::ios_base::failure&) {
    throw InputError(path, "cannot be read; a file was wanted");
  }
}

}  // namespace polarline
