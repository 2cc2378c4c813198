#include "report/read/ReadCheck.h"

#include <functional>

#include "report/read/DemandCheck.h"
#include "report/read/DotsAside.h"
#include "report/read/ParseJson.h"

namespace polarline {
namespace {

ReadPair readPair(const Place& pair, DotsAside& dots) {
  ReadPair read;
  read.points = dots.take(pair);
  if (const auto refined = pair.objectIfAny("refined")) read.refined = dots.take(*refined);
  return read;
}

void dropPoints(Json& pairs) {
  for (Json& pair : pairs) {
    pair.erase("points");
    if (pair.contains("refined") && pair["refined"].is_object()) pair["refined"].erase("points");
  }
}

}  // namespace

ReadCheck readCheck(const ReportDocument& document) {
  const std::string file = document.path.empty() ? "document" : document.path;
  DotsAside dots;
  ReadCheck check{parseJson(document.text, file, std::ref(dots)), {}, document.path};
  const Place place(check.json, file);
  demandCheck(place);
  for (const Place& pair : place.objects("pairs")) check.pairs.push_back(readPair(pair, dots));
  dropPoints(check.json["pairs"]);
  return check;
}

}  // namespace polarline
