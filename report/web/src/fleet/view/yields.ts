import type { Fleet } from '../fleet_data';
import { shareDifference, wilson, z95, type Share, type ShareDifference } from '../statistics/proportion';
import type { Calendar } from './calendar';
import { counted, type Counts } from './counts';

export interface PeriodYield extends Counts {
  day: number;
  yield: Share | null;
}

/** The yield of each period that has sets, in order. */
export function yieldCourse(fleet: Fleet, rows: readonly number[]): PeriodYield[] {
  const byDay = new Map<number, number[]>();
  for (const row of rows) {
    const day = fleet.cells.day[row]!;
    const list = byDay.get(day);
    if (list) list.push(row);
    else byDay.set(day, [row]);
  }
  return [...byDay]
    .sort(([a], [b]) => a - b)
    .map(([day, own]) => {
      const counts = counted(fleet.cells, own);
      return { day, ...counts, yield: wilson(counts.passed, counts.judged) };
    });
}

export interface Against {
  now: Counts;
  before: Counts;
  nowYield: Share | null;
  beforeYield: Share | null;
  difference: ShareDifference | null;
}

/** The last `count` periods that end with `last`, against those before them. */
export function against(
  fleet: Fleet,
  rows: readonly number[],
  calendar: Calendar,
  last: number,
  count: number,
  z = z95,
): Against {
  const { cells } = fleet;
  const since = calendar.back(last, count);
  const from = calendar.back(last, count + calendar.beforeCount);
  const day = (row: number) => cells.day[row]!;
  const now = counted(
    cells,
    rows.filter((row) => day(row) > since && day(row) <= last),
  );
  const before = counted(
    cells,
    rows.filter((row) => day(row) > from && day(row) <= since),
  );
  const nowYield = wilson(now.passed, now.judged, z);
  const beforeYield = wilson(before.passed, before.judged, z);
  const difference = nowYield && beforeYield ? shareDifference(nowYield, beforeYield) : null;
  return { now, before, nowYield, beforeYield, difference };
}
