import type { Fleet, Measure } from '../fleet_data';
import { drifts, type Drift, type Drifts } from '../statistics/cusum';
import { individuals, type Individuals } from '../statistics/individuals';
import { brokenRules, type Break } from '../statistics/run_rules';

/** The numbers of one station and model in the order of time. */
export interface CourseView {
  /** Times of a point's first and last set. */
  begins: number[];
  minutes: number[];
  values: number[];
  /** Sets that make a point. */
  each: number;
  chart: Individuals | null;
  breaks: Break[];
  baseline: Baseline | null;
  sums: Drifts | null;
}

/** What the sums compare with. */
export interface Baseline {
  /** The first ones, whose mean it is. */
  points: number;
  mean: number;
  /** Of a point, from the ranges of all points: a shift makes one of them wide, and few points tell it badly. */
  sigma: number;
  /** Per point, in sigma. */
  allowance: number;
}

/** In sigma. */
export const decision = 8;

/**
 * Half of the least shift that is looked for, 1 sigma, and of the error of the mean of the first points as many standard
 * errors as leave one alarm in a thousand courses of normal points that nobody disturbed: a fleet has hundreds of them.
 */
const halfOfShift = 0.5;
const errorsOfMean = 2.5;

const fewestForBaseline = 8;
const mostForBaseline = 40;

/** Points that there must be for a drift to be told: the first third is what the others are compared with. */
export const fewestForDrift = 3 * fewestForBaseline;

/** The first third of the points; null with too few, or where they do not scatter. */
function baselineOf(values: readonly number[], chart: Individuals | null): Baseline | null {
  const points = Math.min(mostForBaseline, Math.floor(values.length / 3));
  if (points < fewestForBaseline || !chart || !(chart.sigma > 0)) return null;
  const mean = values.slice(0, points).reduce((sum, value) => sum + value, 0) / points;
  return { points, mean, sigma: chart.sigma, allowance: halfOfShift + errorsOfMean / Math.sqrt(points) };
}

interface Point {
  begin: number;
  minute: number;
  value: number;
}

/** Points of several groups of one station and model, merged by time. */
function merged(fleet: Fleet, groups: readonly number[], measure: number): { each: number; points: Point[] } {
  const points: Point[] = [];
  let each = 1;
  for (const course of fleet.courses) {
    if (!groups.includes(course.group)) continue;
    each = course.each;
    course.minute.forEach((minute, k) => {
      const value = course.values[measure]?.[k];
      const before = course.minute[k - 1] ?? minute;
      const begin = course.begin?.[k] ?? (course.each > 1 ? before : minute);
      if (typeof value === 'number') points.push({ begin, minute, value });
    });
  }
  points.sort((a, b) => a.minute - b.minute);
  return { each, points };
}

export function courseOf(fleet: Fleet, groups: readonly number[], measure: number): CourseView {
  const { each, points } = merged(fleet, groups, measure);
  const values = points.map(({ value }) => value);
  const chart = individuals(values);
  const baseline = baselineOf(values, chart);
  const mixed = each > 1;
  return {
    begins: points.map(({ begin }) => begin),
    minutes: points.map(({ minute }) => minute),
    values,
    each,
    chart,
    breaks: chart ? brokenRules(values, chart.centre, chart.sigma) : [],
    baseline,
    sums: baseline && drifts(values, { ...baseline, target: baseline.mean, decision, mixed }),
  };
}

/** The drift that lasts, or null. */
export function lastingDrift(course: CourseView): Drift | null {
  return course.sums?.drifts.filter(({ lasts }) => lasts).at(-1) ?? null;
}

/**
 * When a drift began: the sets of a point lie between its begin and its end, and those behind the change are off. Chance
 * makes the share that is off too large as often as too small. It is taken for smaller by its standard error: a change
 * between two days is else told as one of the first day's evening half the time, and one within a day stays within it.
 */
export function beginMinute({ begins, minutes }: CourseView, drift: Drift): number {
  const { from, share, level, within } = drift;
  const [begin, end] = [begins[from] ?? 0, minutes[from] ?? 0];
  const surely = share < 1 ? Math.max(0, share - 1 / level) : 1;
  const minute = Math.round(begin + (1 - surely) * (end - begin));
  return within ? Math.min(Math.max(minute, within[0]), within[1] - 1) : minute;
}

/**
 * Whether a drift leads to a limit: not away from the only one, and of a figure without any nobody knows whether it is
 * better or worse than before.
 */
export function worsens({ value, lower, upper }: Measure, { side }: Drift): boolean {
  if (value === 'max' || value === 'abs' || value === 'sd') return side === 'up';
  if (value === 'min') return side === 'down';
  return has(side === 'up' ? upper : lower);
}

/** Whether a limit says of a measure what is good. */
export function isLimited({ value, lower, upper }: Measure): boolean {
  return value !== 'mean' || has(lower) || has(upper);
}

function has(bounds: readonly (number | null)[]): boolean {
  return bounds.some((bound) => bound !== null);
}
