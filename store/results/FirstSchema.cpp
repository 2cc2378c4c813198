#include "store/results/SchemaText.h"

namespace polarline::results {
namespace {

/// Never changed: files of this version are out there. What is new is a step of its own.
constexpr const char* kTables = R"sql(
CREATE TABLE stores(
  id INTEGER PRIMARY KEY,
  path TEXT NOT NULL UNIQUE
) STRICT;

CREATE TABLE documents(
  id INTEGER PRIMARY KEY,
  store INTEGER NOT NULL REFERENCES stores(id),
  name TEXT NOT NULL,
  size INTEGER NOT NULL,
  modified INTEGER NOT NULL,
  inode INTEGER NOT NULL,
  sha256 TEXT NOT NULL,
  metadata_size INTEGER NOT NULL,
  metadata_modified INTEGER NOT NULL,
  metadata_inode INTEGER NOT NULL,
  UNIQUE(store, name)
) STRICT;

CREATE TABLE quarantine(
  path TEXT PRIMARY KEY,
  reason TEXT NOT NULL,
  found TEXT NOT NULL
) STRICT, WITHOUT ROWID;

CREATE TABLE sets(
  id INTEGER PRIMARY KEY,
  document INTEGER NOT NULL REFERENCES documents(id),
  name TEXT NOT NULL UNIQUE,
  inputs_sha256 TEXT NOT NULL,
  settings TEXT NOT NULL,
  set_name TEXT NOT NULL,
  folder TEXT NOT NULL,
  serial TEXT,
  station TEXT,
  model TEXT,
  time TEXT NOT NULL,
  day TEXT NOT NULL GENERATED ALWAYS AS (substr(time, 1, 10)) VIRTUAL,
  has_time INTEGER NOT NULL CHECK (has_time IN (0, 1)),
  started TEXT NOT NULL,
  seconds REAL,
  verdict TEXT NOT NULL CHECK (verdict IN ('pass', 'fail', 'error')),
  judged INTEGER NOT NULL,
  status TEXT NOT NULL,
  status_code INTEGER,
  status_text TEXT NOT NULL,
  retry INTEGER NOT NULL CHECK (retry IN (0, 1)),
  pairs INTEGER NOT NULL,
  finished INTEGER NOT NULL,
  diagnosed INTEGER NOT NULL CHECK (diagnosed IN (0, 1)),
  rows_before REAL,
  rows_after REAL,
  board_rows INTEGER NOT NULL,
  board_cols INTEGER NOT NULL,
  camera_model TEXT NOT NULL,
  width INTEGER NOT NULL,
  height INTEGER NOT NULL,
  library TEXT NOT NULL
) STRICT;
CREATE INDEX sets_of_document ON sets(document);

CREATE TABLE metadata(
  set_id INTEGER NOT NULL REFERENCES sets(id) ON DELETE CASCADE,
  key TEXT NOT NULL,
  value TEXT NOT NULL,
  PRIMARY KEY (set_id, key)
) STRICT, WITHOUT ROWID;

CREATE TABLE pairs(
  set_id INTEGER NOT NULL REFERENCES sets(id) ON DELETE CASCADE,
  pair INTEGER NOT NULL,
  "left" TEXT NOT NULL,
  "right" TEXT NOT NULL,
  state TEXT NOT NULL CHECK (state IN ('finished', 'given up')),
  reason_code INTEGER,
  reason_text TEXT,
  reason_side TEXT,
  reason_step TEXT,
  found_left INTEGER NOT NULL,
  found_right INTEGER NOT NULL,
  coverage REAL,
  PRIMARY KEY (set_id, pair)
) STRICT, WITHOUT ROWID;

CREATE TABLE figure_names(
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL UNIQUE,
  figure TEXT NOT NULL,
  entry INTEGER,
  refined INTEGER NOT NULL CHECK (refined IN (0, 1))
) STRICT;

CREATE TABLE figures(
  set_id INTEGER NOT NULL REFERENCES sets(id) ON DELETE CASCADE,
  pair INTEGER NOT NULL,
  figure INTEGER NOT NULL REFERENCES figure_names(id),
  value REAL NOT NULL,
  sd REAL,
  PRIMARY KEY (set_id, pair, figure)
) STRICT, WITHOUT ROWID;

CREATE TABLE limits(
  set_id INTEGER NOT NULL REFERENCES sets(id) ON DELETE CASCADE,
  position INTEGER NOT NULL,
  text TEXT NOT NULL,
  value REAL,
  holds INTEGER NOT NULL CHECK (holds IN (0, 1)),
  pair INTEGER,
  PRIMARY KEY (set_id, position)
) STRICT, WITHOUT ROWID;

CREATE TABLE causes(
  set_id INTEGER NOT NULL REFERENCES sets(id) ON DELETE CASCADE,
  name TEXT NOT NULL,
  value REAL NOT NULL,
  sd REAL,
  unit TEXT NOT NULL,
  share REAL,
  alike INTEGER,
  PRIMARY KEY (set_id, name)
) STRICT, WITHOUT ROWID;

CREATE TABLE warnings(
  set_id INTEGER NOT NULL REFERENCES sets(id) ON DELETE CASCADE,
  position INTEGER NOT NULL,
  code TEXT NOT NULL,
  pair INTEGER,
  text TEXT NOT NULL,
  PRIMARY KEY (set_id, position)
) STRICT, WITHOUT ROWID;
)sql";

}  // namespace

void makeFirstSchema(const sqlite::Database& database) { database.run(kTables); }

}  // namespace polarline::results
