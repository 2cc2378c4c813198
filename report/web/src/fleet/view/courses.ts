import type { Fleet, Measure } from '../fleet_data';
import { drifts, type Drift, type Drifts } from '../statistics/cusum';
import { individuals, type Individuals } from '../statistics/individuals';
import { brokenRules, type Break } from '../statistics/run_rules';

/** The numbers of one station and model in the order of time. */
export interface CourseView {
  minutes: number[];
  values: number[];
  /** Sets that make a point. */
  each: number;
  chart: Individuals | null;
  breaks: Break[];
  /** Mean and sigma of the first points, which the sums compare with; null with too few points. */
  baseline: { points: number; mean: number; sigma: number } | null;
  sums: Drifts | null;
}

/** In sigma. A fleet has hundreds of charts, so the sum decides later than for one (5): about one in thousand alarms falsely. */
export const allowance = 0.5;
export const decision = 8;

const fewestForBaseline = 8;
const mostForBaseline = 40;

/** Points that there must be for a drift to be told: the first third is what the others are compared with. */
export const fewestForDrift = 3 * fewestForBaseline;

/** Points to compare with: the first third of them. */
function baselineOf(values: readonly number[]): CourseView['baseline'] {
  const points = Math.min(mostForBaseline, Math.floor(values.length / 3));
  if (points < fewestForBaseline) return null;
  const chart = individuals(values.slice(0, points));
  return chart && chart.sigma > 0 ? { points, mean: chart.centre, sigma: chart.sigma } : null;
}

/** Points of several groups of one station and model, merged by time. */
function merged(
  fleet: Fleet,
  groups: readonly number[],
  measure: number,
): { each: number; points: [number, number][] } {
  const points: [number, number][] = [];
  let each = 1;
  for (const course of fleet.courses) {
    if (!groups.includes(course.group)) continue;
    each = course.each;
    course.minute.forEach((minute, k) => {
      const value = course.values[measure]?.[k];
      if (typeof value === 'number') points.push([minute, value]);
    });
  }
  points.sort(([a], [b]) => a - b);
  return { each, points };
}

export function courseOf(fleet: Fleet, groups: readonly number[], measure: number): CourseView {
  const { each, points } = merged(fleet, groups, measure);
  const values = points.map(([, value]) => value);
  const chart = individuals(values);
  const baseline = baselineOf(values);
  return {
    minutes: points.map(([minute]) => minute),
    values,
    each,
    chart,
    breaks: chart ? brokenRules(values, chart.centre, chart.sigma) : [],
    baseline,
    sums: baseline && drifts(values, { target: baseline.mean, sigma: baseline.sigma, allowance, decision }),
  };
}

/** The drift that lasts, or null. */
export function lastingDrift(course: CourseView): Drift | null {
  return course.sums?.drifts.filter(({ lasts }) => lasts).at(-1) ?? null;
}

/** Whether a drift leads to the limit, and not away from the only one. */
export function worsens({ value, lower, upper }: Measure, { side }: Drift): boolean {
  const has = (bounds: readonly (number | null)[]) => bounds.some((bound) => bound !== null);
  if (value === 'max' || value === 'abs' || value === 'sd') return side === 'up';
  if (value === 'min') return side === 'down';
  return has(lower) === has(upper) || (has(upper) ? side === 'up' : side === 'down');
}
