#include "store/results/SchemaText.h"

namespace polarline {
namespace {

constexpr const char* kViews = R"sql(
CREATE VIEW figure_values AS
SELECT f.set_id, f.pair, n.name, n.figure, n.entry, n.refined, f.value, f.sd
FROM figures f JOIN figure_names n ON n.id = f.figure;

CREATE VIEW yield_by_station_day AS
SELECT station, day, count(*) AS sets,
  sum(verdict = 'pass' AND judged > 0) AS passed,
  sum(verdict = 'fail') AS failed,
  sum(verdict = 'pass' AND judged = 0) AS unjudged,
  sum(verdict = 'error') AS errors,
  CAST(sum(verdict = 'pass' AND judged > 0) AS REAL) /
    nullif(sum(verdict = 'fail' OR (verdict = 'pass' AND judged > 0)), 0) AS yield
FROM sets GROUP BY station, day ORDER BY station, day;

CREATE VIEW worst_sets AS
SELECT s.id AS set_id, s.set_name, s.serial, s.station, s.model, s.time, s.verdict,
  sum(l.holds = 0) AS exceeded
FROM sets s JOIN limits l ON l.set_id = s.id
WHERE s.verdict <> 'error'
GROUP BY s.id ORDER BY exceeded DESC, s.time, s.id;

CREATE VIEW figure_trend AS
SELECT n.name AS figure, s.station, s.model, s.day, count(DISTINCT s.id) AS sets, count(*) AS pairs,
  avg(f.value) AS mean, min(f.value) AS min, max(f.value) AS max,
  CASE WHEN count(*) > 1 THEN
    max(0.0, (sum(f.value * f.value) - count(*) * avg(f.value) * avg(f.value)) / (count(*) - 1)) END AS variance
FROM figure_names n CROSS JOIN sets s JOIN pairs p ON p.set_id = s.id
  JOIN figures f ON f.set_id = p.set_id AND f.pair = p.pair AND f.figure = n.id
GROUP BY n.name, s.station, s.model, s.day;
)sql";

}  // namespace

void makeViews(const sqlite::Database& database) {
  std::string drops;
  sqlite::Statement view(database, "SELECT name FROM sqlite_master WHERE type = 'view'");
  while (view.step()) drops += "DROP VIEW \"" + view.text(0) + "\";";
  view.reset();
  database.run(drops + kViews);
}

}  // namespace polarline
