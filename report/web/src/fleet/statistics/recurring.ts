import { pooled, type Moments } from './moments';
import { shareDifference, wilson } from './proportion';

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

type Level = Moments & { error: number };

function spread(periods: readonly CausePeriod[]): Level {
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

/** Neighbouring periods in which at least half of the diagnosed sets tell the cause, and those between them. */
interface Run {
  before: CausePeriod[];
  periods: CausePeriod[];
}

function runs(periods: readonly CausePeriod[]): Run[] {
  const found: Run[] = [{ before: [], periods: [] }];
  for (const period of periods) {
    if (period.diagnosed <= 0) continue;
    const last = found[found.length - 1]!;
    if (period.n >= leastShare * period.diagnosed) last.periods.push(period);
    else if (last.periods.length > 0) found.push({ before: [period], periods: [] });
    else last.before.push(period);
  }
  return found.filter((run) => run.periods.length > 0);
}

const countsOf = (periods: readonly CausePeriod[]) => ({
  told: periods.reduce((sum, { n }) => sum + n, 0),
  diagnosed: periods.reduce((sum, { diagnosed }) => sum + diagnosed, 0),
});

function shareOf(periods: readonly CausePeriod[]) {
  const { told, diagnosed } = countsOf(periods);
  return wilson(told, diagnosed);
}

const isApart = (a: Level, b: Level): boolean => Math.abs(a.mean - b.mean) > offZero * Math.hypot(a.error, b.error);

/**
 * What came up in the course of a period is told by less than half of its sets where that was late in it. The run begins
 * there all the same: where they tell the same of it, and more of them do than before, or those before told another value.
 */
function fromItsBegin({ before, periods }: Run): CausePeriod[] {
  const [first, earlier] = [before.slice(-1), before.slice(0, -1)];
  const [share, old] = [shareOf(first), shareOf(earlier)];
  if (!share || !old || share.count === 0) return periods;
  const part = spread(first);
  const told = spread(earlier);
  // As large as it would be if these sets told what those before them did.
  const chance = told.error * Math.sqrt(old.count / share.count);
  const isNew = shareDifference(share, old).low > 0 || (old.count > 0 && isApart({ ...part, error: chance }, told));
  return isNew && !isApart(part, spread(periods)) ? [...first, ...periods] : periods;
}

/** The period before a new level, where its value is neither the old nor the new one: it changed in the course of it. */
function beginOfLevel(periods: readonly CausePeriod[], level: number): number {
  const mixed = level - 1;
  if (mixed < 1) return level;
  const [before, at, behind] = [
    spread(periods.slice(0, mixed)),
    spread([periods[mixed]!]),
    spread(periods.slice(level)),
  ];
  const towards = (at.mean - before.mean) * (behind.mean - before.mean) > 0;
  return towards && isApart(at, before) ? mixed : level;
}

/**
 * Causes that come back: told by at least half of the sets, period after period, at least five sets in all, with a mean
 * that is no chance. Where the value has changed its level, it counts from then. Of the first period it may be a part.
 * Periods in the order of time.
 */
export function recurrences(periods: readonly CausePeriod[]): Recurrence[] {
  const last = periods.filter(({ diagnosed }) => diagnosed > 0).at(-1)?.day;
  return runs(periods).flatMap((found) => {
    const run = fromItsBegin(found);
    const at = lastLevel(run);
    const { n, mean, error } = spread(run.slice(at));
    if (n < leastSets || !(Math.abs(mean) > offZero * error)) return [];
    const counted = run.slice(beginOfLevel(run, at));
    const to = run[run.length - 1]!.day;
    return [{ from: counted[0]!.day, to, lasts: to === last, mean, error, ...countsOf(counted) }];
  });
}
