#include <fmt/format.h>

#include "store/fleet/Parts.h"
#include "store/fleet/Worst.h"

namespace polarline::fleet {

void addWorst(FleetJson& json, const sqlite::Database& database, const Fleet& fleet, const std::string& pages) {
  json["worst"] = FleetJson::array();
  sqlite::Statement row(database, "SELECT set_name, inputs_sha256, serial, time, verdict, name FROM sets WHERE id = ?");
  for (const WorstSet& each : worstOf(fleet.sets, fleet.limits, fleet.rows, fleet.cells.groups.size())) {
    const FleetSet& set = fleet.sets.at(each.place);
    row.bind(set.id).step();
    const std::string document = row.text(5);
    FleetJson worst;
    worst["set"] = row.text(0);
    worst["id"] = row.text(1);
    worst["serial"] = row.isNull(2) ? FleetJson(nullptr) : FleetJson(row.text(2));
    worst["group"] = set.group;
    worst["time"] = row.text(3);
    worst["verdict"] = row.text(4);
    worst["limit"] = each.rule ? fleet.limits.rules[*each.rule].text : "";
    worst["measured"] = shortNumber(each.measured);
    worst["times"] = shortNumber(each.times);
    worst["document"] = document;
    worst["page"] = pages.empty() ? FleetJson(nullptr) : FleetJson(fmt::format("{}/{}.html", pages, document));
    json["worst"].push_back(std::move(worst));
  }
}

}  // namespace polarline::fleet
