#include <string>
#include <vector>

#include "store/results/LimitRules.h"
#include "store/results/SchemaText.h"

namespace polarline::results {
namespace {

constexpr const char* kLimitRules = R"sql(
CREATE TABLE limit_rules(
  text TEXT PRIMARY KEY,
  figure TEXT,
  statistic TEXT,
  absolute INTEGER CHECK (absolute IN (0, 1)),
  comparison TEXT CHECK (comparison IN ('<', '<=', '>', '>=')),
  bound REAL
) STRICT, WITHOUT ROWID;
)sql";

}  // namespace

void addLimitRules(const sqlite::Database& database) {
  database.run(kLimitRules);
  std::vector<std::string> texts;
  sqlite::Statement each(database, "SELECT DISTINCT text FROM limits");
  while (each.step()) texts.push_back(each.text(0));
  each.reset();
  LimitRules rules(database);
  for (const std::string& text : texts) rules.add(text);
}

}  // namespace polarline::results
