#pragma once

#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>

#include "polarline/report.h"

/// The data of a fleet of seven sets, small enough to be reckoned by hand.
namespace made_fleet {

inline constexpr const char* kText = R"({
"schema":"polarline-fleet/1",
"made":"2026-11-22T19:00:00Z",
"tool":{"name":"polarline","version":"1.2.0","library":"PolarLinePrecision 1.2.0"},
"title":"results",
"sets":7,
"serials":6,
"first":"2026-11-20T06:00:00Z",
"last":"2026-11-21T06:40:00Z",
"keys":[{"key":"station","values":["1","2"]},{"key":"model","values":["K2",null]},{"key":"shift","values":["early","late"]}],
"other_keys":[{"key":"operator","values":57}],
"groups":[[0,0,0],[1,0,1],[1,1,1]],
"period":"day",
"first_day":"2026-11-20",
"cells":{"group":[0,0,1,2],"day":[0,1,0,1],"passed":[2,1,1,0],"failed":[0,1,0,0],"unjudged":[0,0,0,1],"errors":[0,0,1,0],"diagnosed":[2,2,1,1],"pairs":[6,6,6,3],"finished":[6,5,3,3]},
"measures":[{"name":"dy_means","value":"max","unit":"pixels","lower":[null,null,null],"upper":[0.1,0.1,0.1],"texts":["dy_means<=0.1"],"changed":false,"n":[2,2,1,1],"mean":[0.05,0.09,0.06,0.04],"sd":[0.014,0.03,0,0],"from":0.02,"step":0.01,"bins":[[0,0,1,1,0,0,0,0,0,1,1],[0,0,0,0,1,0,0,0,0,0,0],[0,0,1,0,0,0,0,0,0,0,0]]}],
"limits":["dy_means<=0.1","given_up<=0"],
"broken":{"cell":[1],"limit":[0],"sets":[1]},
"causes":{"names":["rotation_x","row_offset"],"units":["deg","px"],"totals":{"group":[0,1],"cause":[0,1],"sets":[3,1]},"cell":[0,1,2],"cause":[0,0,1],"sets":[1,2,1],"mean":[0.048,0.051,0.4],"sd":[0,0.002,0],"error":[0.002,0.0021,0.05]},
"warnings":{"codes":["blurred"],"cell":[1],"code":[0],"sets":[1]},
"endings":{"names":["CALIB_READ_FAILED"],"cell":[2],"name":[0],"sets":[1]},
"courses":[{"group":0,"each":1,"waiting":0,"minute":[0,12,1440,1450],"values":[[0.04,0.06,0.069,0.111]]},{"group":1,"each":1,"waiting":0,"minute":[30],"values":[[0.06]]},{"group":2,"each":1,"waiting":0,"minute":[1480],"values":[[0.04]]}],
"worst":[{"set":"line <4>","id":"0f3a","serial":"A-17","group":0,"time":"2026-11-21T06:10:00Z","verdict":"fail","limit":"dy_means<=0.1","measured":0.111,"times":1.11,"document":"abcdef0123","page":null}],
"notes":["12 sets had no time; the begin of their check counts."]
})";

inline nlohmann::ordered_json json() { return nlohmann::ordered_json::parse(kText); }

inline polarline::ReportDocument documentOf(const nlohmann::ordered_json& json) { return {json.dump(), "f.json"}; }
inline polarline::ReportDocument document() { return {kText, "f.json"}; }

/// The data of a store without a set.
inline nlohmann::ordered_json emptyJson() {
  nlohmann::ordered_json data = json();
  const auto lists = [&data](const char* part, std::initializer_list<const char*> keys) {
    for (const char* key : keys) data[part][key] = nlohmann::ordered_json::array();
  };
  for (const char* key : {"other_keys", "groups", "measures", "limits", "courses", "worst", "notes"})
    data[key] = nlohmann::ordered_json::array();
  lists("cells", {"group", "day", "passed", "failed", "unjudged", "errors", "diagnosed", "pairs", "finished"});
  lists("broken", {"cell", "limit", "sets"});
  lists("causes", {"names", "units", "cell", "cause", "sets", "mean", "sd", "error"});
  data["causes"]["totals"] = {{"group", {}}, {"cause", {}}, {"sets", {}}};
  for (const char* key : {"group", "cause", "sets"}) data["causes"]["totals"][key] = nlohmann::ordered_json::array();
  lists("warnings", {"codes", "cell", "code", "sets"});
  lists("endings", {"names", "cell", "name", "sets"});
  data["keys"] = {{{"key", "station"}, {"values", {nullptr}}}, {{"key", "model"}, {"values", {nullptr}}}};
  data["sets"] = 0;
  data["serials"] = 0;
  for (const char* key : {"first", "last", "first_day"}) data[key] = nullptr;
  return data;
}

}  // namespace made_fleet
