#include <fmt/format.h>

#include "store/fleet/Courses.h"
#include "store/fleet/Parts.h"

namespace polarline::fleet {

void addCourses(FleetJson& json, const Fleet& fleet, Notes& notes) {
  std::size_t left_out = 0;
  const std::vector<FigureCourse> courses = coursesOf(fleet.sets, fleet.cells, fleet.values, left_out);
  json["courses"] = FleetJson::array();
  for (const FigureCourse& course : courses) {
    FleetJson values = FleetJson::array();
    for (const std::vector<double>& measure : course.values) {
      FleetJson& points = values.emplace_back(FleetJson::array());
      for (const double value : measure) points.push_back(shortNumber(value));
    }
    json["courses"].push_back({{"group", course.group},
                               {"each", course.each},
                               {"waiting", course.waiting},
                               {"begin", course.begins},
                               {"minute", course.minutes},
                               {"values", std::move(values)}});
  }
  if (left_out > 0) {
    notes.push_back(
        fmt::format("The {} of the most sets have charts; {} of fewer have none.", "stations and models", left_out));
  }
}

}  // namespace polarline::fleet
