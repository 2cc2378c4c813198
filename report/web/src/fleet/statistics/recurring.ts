import { pooled, type Moments } from './moments';

/** What one period says of a cause at one station and model. */
export interface CausePeriod extends Moments {
  day: number;
  diagnosed: number;
  /** Error of one set's value. */
  error: number;
}

export interface Recurrence {
  /** First and last period of it. */
  from: number;
  to: number;
  /** The last period that was diagnosed is in it. */
  lasts: boolean;
  told: number;
  diagnosed: number;
  mean: number;
  /** Standard error of the mean. */
  error: number;
}

const leastShare = 0.5;
const leastSets = 5;
/** Standard errors by which a mean is off zero, and by which two levels differ. */
const offZero = 3;
const otherLevel = 6;

function spread(periods: readonly CausePeriod[]): Moments & { error: number } {
  const all = pooled(periods);
  const squares = periods.reduce((sum, { n, error }) => sum + n * error * error, 0);
  const single = Math.max(all.sd, Math.sqrt(squares / Math.max(1, all.n)));
  return { ...all, error: single / Math.sqrt(Math.max(1, all.n)) };
}

/** Where the value changed its level the last time; 0 where it did not. */
function lastLevel(periods: readonly CausePeriod[]): number {
  let start = 0;
  for (;;) {
    let best = 0;
    let highest = otherLevel;
    for (let at = start + 1; at < periods.length; at++) {
      const before = spread(periods.slice(start, at));
      const after = spread(periods.slice(at));
      if (before.n < leastSets || after.n < leastSets) continue;
      const apart = Math.abs(after.mean - before.mean) / (Math.hypot(before.error, after.error) || Infinity);
      if (apart <= highest) continue;
      highest = apart;
      best = at;
    }
    if (best === 0) return start;
    start = best;
  }
}

/** Neighbouring periods in which at least half of the diagnosed sets tell the cause. */
function runs(periods: readonly CausePeriod[]): CausePeriod[][] {
  const found: CausePeriod[][] = [[]];
  for (const period of periods) {
    if (period.diagnosed <= 0) continue;
    if (period.n >= leastShare * period.diagnosed) found[found.length - 1]!.push(period);
    else if (found[found.length - 1]!.length > 0) found.push([]);
  }
  return found.filter((run) => run.length > 0);
}

/**
 * Causes that come back: told by at least half of the sets, period after period, at least five sets in all, with a mean
 * that is no chance. Where the value has changed its level, it counts from then. Periods in the order of time.
 */
export function recurrences(periods: readonly CausePeriod[]): Recurrence[] {
  const last = periods.filter(({ diagnosed }) => diagnosed > 0).at(-1)?.day;
  return runs(periods).flatMap((run) => {
    const level = run.slice(lastLevel(run));
    const { n, mean, error } = spread(level);
    if (n < leastSets || !(Math.abs(mean) > offZero * error)) return [];
    const to = level[level.length - 1]!.day;
    const diagnosed = level.reduce((sum, period) => sum + period.diagnosed, 0);
    return [{ from: level[0]!.day, to, lasts: to === last, told: n, diagnosed, mean, error }];
  });
}
