#include "store/results/SchemaText.h"

namespace polarline::results {

void addPlaces(const sqlite::Database& database) {
  database.run(R"sql(
CREATE TABLE places(
  set_id INTEGER PRIMARY KEY REFERENCES sets(id) ON DELETE CASCADE,
  place TEXT NOT NULL
) STRICT;
CREATE INDEX sets_of_place ON places(place);
)sql");
}

}  // namespace polarline::results
