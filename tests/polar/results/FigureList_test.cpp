#include "polar/results/FigureList.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "support/Places.h"

namespace {

TEST(FigureList, EveryFieldOfTheRecordIsListedOnce) {
  PolarResultRecord record;
  // A new field does not compile here until it has its name in the list below.
  const auto& [tri_mean, tri_min, tri_max, tri_rms, tri_dis, dy_means, dy_min, dy_max, pol_dis, id_dis, dis_rms,
               nor_rms, detect_canvas, zero_dis, PoseReport, pairPoints, icp_x_rms, icp_y_rms, icp_z_rms, icp_nor_rms,
               frameValues, gt_rms, space_rms] = record;
  const std::map<std::string, const void*> fields = {{"tri_mean", &tri_mean},
                                                     {"tri_min", &tri_min},
                                                     {"tri_max", &tri_max},
                                                     {"tri_rms", &tri_rms},
                                                     {"tri_dis", &tri_dis},
                                                     {"dy_means", &dy_means},
                                                     {"dy_min", &dy_min},
                                                     {"dy_max", &dy_max},
                                                     {"pol_dis", &pol_dis},
                                                     {"id_dis", &id_dis},
                                                     {"dis_rms", &dis_rms},
                                                     {"nor_rms", &nor_rms},
                                                     {"detect_canvas", &detect_canvas},
                                                     {"zero_dis", &zero_dis},
                                                     {"PoseReport", &PoseReport},
                                                     {"pairPoints", &pairPoints},
                                                     {"icp_x_rms", &icp_x_rms},
                                                     {"icp_y_rms", &icp_y_rms},
                                                     {"icp_z_rms", &icp_z_rms},
                                                     {"icp_nor_rms", &icp_nor_rms},
                                                     {"frameValues", &frameValues},
                                                     {"gt_rms", &gt_rms},
                                                     {"space_rms", &space_rms}};
  std::map<std::string, const void*> listed;
  figure_list::forEach([&](auto figure) {
    if constexpr (figure.kInRecord) {
      EXPECT_TRUE(listed.emplace(figure.name, &figure.fieldOf(record)).second) << figure.name;
    }
  });
  EXPECT_EQ(listed, fields);
}

TEST(FigureList, EveryFigureHasItsOwnNameAndValueAndSaysWhatItMeans) {
  PairFigures figures;
  std::set<std::string> names;
  std::set<const void*> values;
  figure_list::forEach([&](auto figure) {
    EXPECT_TRUE(names.insert(figure.name).second) << figure.name;
    EXPECT_TRUE(values.insert(&figure.valueIn(figures)).second) << figure.name;
    EXPECT_STRNE(figure.meaning, "") << figure.name;
  });
}

TEST(FigureList, ColumnOfASummaryHasASwitchAndAHeading) {
  figure_list::forEach([](auto figure) {
    const figure_list::Column& column = figure.column;
    const bool has_column = column.summary != figure_list::Summary::kNone;
    EXPECT_EQ(column.is_on != nullptr, has_column) << figure.name;
    EXPECT_EQ(std::string(column.heading).starts_with(',') || column.name_entries != nullptr, has_column)
        << figure.name;
  });
}

/// The page abbreviates the headings that differ in their ends only.
TEST(FigureList, HeadingsAreThoseOfThePageOnResultFiles) {
  std::ifstream file(places::inProject("docs/formats/result_files.md"));
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  ASSERT_FALSE(page.empty());
  figure_list::forEach([&](auto figure) {
    const std::string heading = figure.column.heading;
    const std::string first = heading.substr(0, heading.find(',', 1));
    EXPECT_NE(page.find(first), std::string::npos) << figure.name;
  });
}

/// The places where header and row do not fit, which is meant. See the entries.
TEST(FigureList, HeaderAndRowMisfitInTwoPlaces) {
  std::set<std::string> not_in_the_rectified_header, named_by_the_configuration;
  figure_list::forEach([&](auto figure) {
    if (!figure.column.in_rectified_header) not_in_the_rectified_header.insert(figure.name);
    if (figure.column.summary == figure_list::Summary::kPairs && figure.column.name_entries != nullptr)
      named_by_the_configuration.insert(figure.name);
  });
  EXPECT_EQ(not_in_the_rectified_header, std::set<std::string>{"space_rms"});
  EXPECT_EQ(named_by_the_configuration, std::set<std::string>{"id_dis"});
}

}  // namespace
