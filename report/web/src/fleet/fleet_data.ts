import type { Explanation } from '../page_data';

/** What the fleet's page is given in the element `polarline-data`. */
export interface FleetPageData {
  schema: 'polarline-fleet-page/1';
  /** What a figure, cause, warning or status means, by its name. */
  explanations: Record<string, Explanation>;
  fleet: Fleet;
}

/**
 * Counts and sums of all sets of a store, `polarline-fleet/1`, docs/schema/polarline-fleet-1.schema.json. Lists that
 * stand together have one entry a row; an index counts from 0. Everything that a filter changes is worked out here, in
 * the page, from these.
 */
export interface Fleet {
  schema: 'polarline-fleet/1';
  made: string;
  tool: { name: string; version: string; library: string };
  title: string;
  sets: number;
  serials: number;
  first: string | null;
  last: string | null;
  /** What can be filtered by; the first two are station and model. */
  keys: { key: string; values: (string | null)[] }[];
  other_keys: { key: string; values: number }[];
  /** Combinations of values: an index into `values` for each key. */
  groups: number[][];
  period: Period;
  first_day: string | null;
  cells: Cells;
  measures: Measure[];
  limits: string[];
  broken: { cell: number[]; limit: number[]; sets: number[] };
  causes: Causes;
  warnings: { codes: string[]; cell: number[]; code: number[]; sets: number[] };
  endings: { names: string[]; cell: number[]; name: number[]; sets: number[] };
  courses: Course[];
  worst: WorstSet[];
  notes: string[];
}

export type Period = 'day' | 'week' | 'month' | 'year';

/** One row a group and period. */
export interface Cells {
  group: number[];
  /** First day of the period, in days since `first_day`. */
  day: number[];
  passed: number[];
  failed: number[];
  unjudged: number[];
  errors: number[];
  diagnosed: number[];
  pairs: number[];
  finished: number[];
}

/** One number of each set: of a figure's summary over the pairs. */
export interface Measure {
  name: string;
  value: 'mean' | 'max' | 'min' | 'abs' | 'sd';
  unit: string;
  /** Bounds that hold for a group. */
  lower: (number | null)[];
  upper: (number | null)[];
  texts: string[];
  changed: boolean;
  /** One entry a cell. */
  n: number[];
  mean: (number | null)[];
  sd: (number | null)[];
  from: number;
  step: number;
  /** Counts by group and bar. */
  bins: number[][];
}

export interface Causes {
  names: string[];
  units: string[];
  totals: { group: number[]; cause: number[]; sets: number[] };
  cell: number[];
  cause: number[];
  sets: number[];
  mean: number[];
  sd: number[];
  error: number[];
}

/** The sets of a group in the order of time, always `each` of them made one point. */
export interface Course {
  group: number;
  each: number;
  waiting: number;
  /** Of a point's first set; missing in earlier documents. */
  begin?: number[];
  /** Of its last set. */
  minute: number[];
  values: (number | null)[][];
}

export interface WorstSet {
  set: string;
  id: string;
  serial: string | null;
  group: number;
  time: string;
  verdict: 'pass' | 'fail';
  limit: string;
  measured: number | null;
  times: number | null;
  document: string;
  page: string | null;
}
