#include "store/results/SchemaText.h"

namespace polarline::results {
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

CREATE VIEW judged_limits AS
SELECT l.set_id, l.text, l.value, l.holds, l.pair, r.figure, r.statistic, r.absolute, r.comparison, r.bound,
  min(1000.0, CASE
    WHEN r.bound > 0 AND r.comparison IN ('<', '<=') THEN iif(r.absolute, abs(l.value), l.value) / r.bound
    WHEN r.bound > 0 AND iif(r.absolute, abs(l.value), l.value) <= 0 THEN 1000.0
    WHEN r.bound > 0 THEN r.bound / iif(r.absolute, abs(l.value), l.value)
    ELSE 1 + (iif(r.absolute, abs(l.value), l.value) - r.bound) * iif(r.comparison IN ('<', '<='), 1, -1) /
      ifnull(nullif(abs(r.bound), 0), 1)
  END) AS times
FROM limits l JOIN limit_rules r ON r.text = l.text;

CREATE VIEW worst_sets AS
SELECT s.id AS set_id, s.set_name, s.serial, s.station, s.model, s.time, s.verdict, count(j.holds = 0 OR NULL) AS exceeded,
  j.text AS worst_limit, j.value AS measured, max(iif(j.holds = 0, ifnull(j.times, 1000.0), j.times)) AS times,
  t.path || '/' || substr(s.name, 1, 2) || '/' || s.name || '.json' AS document
FROM sets s JOIN judged_limits j ON j.set_id = s.id JOIN documents d ON d.id = s.document JOIN stores t ON t.id = d.store
WHERE s.verdict <> 'error'
GROUP BY s.id ORDER BY s.verdict = 'fail' DESC, times DESC, s.time, s.id;

CREATE VIEW figure_trend AS -- Squares of what a value is apart from one of its figure: of the values themselves little would be left.
WITH origins AS MATERIALIZED (
  SELECT id, name, (SELECT value FROM figures WHERE figure = figure_names.id LIMIT 1) AS origin FROM figure_names
)
SELECT n.name AS figure, s.station, s.model, s.day, count(DISTINCT s.id) AS sets, count(*) AS pairs,
  avg(f.value) AS mean, min(f.value) AS min, max(f.value) AS max,
  CASE WHEN count(*) > 1 THEN
    max(0.0, (sum((f.value - n.origin) * (f.value - n.origin)) -
      sum(f.value - n.origin) * sum(f.value - n.origin) / count(*)) / (count(*) - 1)) END AS variance
FROM origins n CROSS JOIN sets s JOIN pairs p ON p.set_id = s.id
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

}  // namespace polarline::results
