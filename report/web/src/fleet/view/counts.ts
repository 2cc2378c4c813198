import type { Cells } from '../fleet_data';

export interface Counts {
  passed: number;
  failed: number;
  unjudged: number;
  errors: number;
  sets: number;
  judged: number;
}

/** Sets of some cells, by how they ended. */
export function counted(cells: Cells, rows: readonly number[]): Counts {
  const sum = (column: readonly number[]) => rows.reduce((total, row) => total + (column[row] ?? 0), 0);
  const [passed, failed] = [sum(cells.passed), sum(cells.failed)];
  const [unjudged, errors] = [sum(cells.unjudged), sum(cells.errors)];
  return { passed, failed, unjudged, errors, sets: passed + failed + unjudged + errors, judged: passed + failed };
}
