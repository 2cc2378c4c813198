import { Explanations } from '../../text/figures';
import type { Fleet, FleetPageData, Measure } from '../fleet_data';
import { pooled } from '../statistics/moments';
import { recurrences, type Recurrence } from '../statistics/recurring';
import { Calendar } from './calendar';
import { courseOf, lastingDrift, worsens, type CourseView } from './courses';
import { seenGroups, type Filter } from './filter';
import { toldTogether } from './since';
import { against, type Against } from './yields';

/** One station with one model. */
export interface Stream {
  station: number;
  model: number;
  /** Seen groups, and their cells. */
  groups: number[];
  rows: number[];
  name: string;
  /** The last periods against those before. */
  late: Against;
  /** By measure. */
  courses: CourseView[];
  causes: StreamCause[];
  /** The yield is lower than before by more than chance makes of one in some hundred. */
  yieldFell: boolean;
  /** How much is off, for the order; 0: nothing. */
  weight: number;
}

export interface StreamCause extends Recurrence {
  cause: number;
}

/** Everything that a filter leaves, worked out. */
export interface FleetView {
  fleet: Fleet;
  calendar: Calendar;
  explanations: Explanations;
  filter: Filter;
  seen: boolean[];
  /** Cells that are seen. */
  rows: number[];
  /** The last day of these; null: none. */
  last: number | null;
  streams: Stream[];
}

/** Standard deviations that a fall of one of many stations has to be worth. */
const surely = 3;

/** "station 3", "Station 3, K2"; what is not said is left out. */
export function streamName({ keys }: Fleet, station: number, model: number): string {
  const place = keys[0]!.values[station] ?? null;
  const kind = keys[1]!.values[model] ?? null;
  const said = keys[0]!.values.length > 1 || place !== null;
  const first = place === null ? (said ? 'No station' : '') : `Station ${place}`;
  const words = [first, kind ?? (keys[1]!.values.length > 1 ? 'no model' : '')].filter((word) => word !== '');
  return words.join(', ') || 'All sets';
}

function causesOf(fleet: Fleet, rows: readonly number[]): StreamCause[] {
  const { causes, cells } = fleet;
  const own = new Set(rows);
  const days = new Map<number, number>();
  for (const row of rows) days.set(cells.day[row]!, (days.get(cells.day[row]!) ?? 0) + cells.diagnosed[row]!);
  const told = new Map<number, number[]>();
  causes.cell.forEach((cell, k) => {
    if (!own.has(cell)) return;
    const list = told.get(causes.cause[k]!);
    if (list) list.push(k);
    else told.set(causes.cause[k]!, [k]);
  });
  return [...told].flatMap(([cause, entries]) => {
    const periods = [...days]
      .sort(([a], [b]) => a - b)
      .flatMap(([day, diagnosed]) => {
        const here = entries.filter((k) => cells.day[causes.cell[k]!] === day);
        const lots = here.map((k) => ({
          n: causes.sets[k]!,
          mean: causes.mean[k]!,
          sd: causes.sd[k]!,
          error: causes.error[k]!,
        }));
        return [joined(day, diagnosed, lots)];
      });
    return recurrences(periods).map((found) => ({ ...found, cause }));
  });
}

type Lot = { n: number; mean: number; sd: number; error: number };

function joined(day: number, diagnosed: number, lots: readonly Lot[]) {
  const all = pooled(lots);
  const squares = lots.reduce((sum, { n, error }) => sum + n * error * error, 0);
  return { day, diagnosed, ...all, error: Math.sqrt(squares / Math.max(1, all.n)) };
}

function streamOf(fleet: Fleet, calendar: Calendar, groups: number[], rows: number[], last: number): Stream {
  const [station = 0, model = 0] = fleet.groups[groups[0]!]!;
  const late = against(fleet, rows, calendar, last, calendar.lateCount);
  const strict = against(fleet, rows, calendar, last, calendar.lateCount, surely);
  const causes = causesOf(fleet, rows);
  const courses = toldTogether(
    fleet.measures.map((_, measure) => courseOf(fleet, groups, measure)),
    causes.filter(({ lasts }) => lasts).map(({ from }) => calendar.minutesOf(from)),
  );
  const yieldFell = strict.difference !== null && strict.difference.high < 0;
  const shifts = courses.map((course, measure) => {
    const drift = lastingDrift(course);
    return drift && worsens(fleet.measures[measure]!, drift)
      ? Math.abs(drift.shift) / (course.baseline?.sigma ?? 1)
      : 0;
  });
  const fell = yieldFell ? 10 - 20 * (late.difference?.value ?? 0) : 0;
  const recent = causes.filter((cause) => cause.lasts && cause.from > calendar.back(last, calendar.beforeCount));
  const weight = fell + Math.max(0, ...shifts) + 2 * recent.length;
  const name = streamName(fleet, station, model);
  return { station, model, groups, rows, name, late, courses, causes, yieldFell, weight };
}

/** Groups that differ in nothing but further keys belong together. */
function streamsOf(fleet: Fleet, calendar: Calendar, seen: boolean[], rows: number[], last: number): Stream[] {
  const groups = new Map<string, number[]>();
  fleet.groups.forEach((group, index) => {
    if (!seen[index]) return;
    const name = `${group[0]}.${group[1]}`;
    groups.set(name, [...(groups.get(name) ?? []), index]);
  });
  const rowsOf = fleet.groups.map((): number[] => []);
  for (const row of rows) rowsOf[fleet.cells.group[row]!]!.push(row);
  return [...groups.values()].map((own) =>
    streamOf(
      fleet,
      calendar,
      own,
      own.flatMap((group) => rowsOf[group]!),
      last,
    ),
  );
}

export function viewOf({ fleet, explanations }: FleetPageData, filter: Filter): FleetView {
  const calendar = new Calendar(fleet);
  const seen = seenGroups(filter, fleet.groups);
  const rows = fleet.cells.group.flatMap((group, row) => (seen[group] ? [row] : []));
  const last = rows.reduce<number | null>((most, row) => Math.max(most ?? 0, fleet.cells.day[row]!), null);
  const streams = last === null ? [] : streamsOf(fleet, calendar, seen, rows, last);
  return { fleet, calendar, explanations: new Explanations(explanations), filter, seen, rows, last, streams };
}

const ofSet: Record<Measure['value'], string> = {
  mean: 'mean of the set',
  max: 'largest of the set',
  min: 'smallest of the set',
  abs: 'largest size in the set',
  sd: 'spread in the set',
};

/** "Mean row difference, largest of the set" */
export function measureTitle({ explanations }: FleetView, { name, value }: Measure): string {
  const bare = name.replace(/^refined\./, '');
  return `${explanations.title(bare)}${bare === name ? '' : ', refined'}, ${ofSet[value]}`;
}
