import type { Change } from '../statistics/change_point';
import type { Drift } from '../statistics/cusum';
import { beginMinute, lastingDrift, type CourseView } from './courses';

/** Minutes, the end left out. */
type Span = [from: number, to: number];

const dayMinutes = 1440;

function dayOf(minute: number): Span {
  const from = Math.floor(minute / dayMinutes) * dayMinutes;
  return [from, from + dayMinutes];
}

/** Standard errors of a share that 99 % lie within. */
const surely = 2.58;

/**
 * The minutes in which a change may have come: between two points, or within one as far as the error of the share that
 * is off leaves that open.
 */
export function openMinutes({ begins, minutes }: CourseView, { from, share, level }: Change): Span {
  const [begin, end] = [begins[from]!, minutes[from]!];
  if (share === 1) return [minutes[from - 1] ?? begin, begin];
  const at = (part: number) => begin + (1 - Math.min(1, Math.max(0, part))) * (end - begin);
  return [at(share + surely / level), at(share - surely / level)];
}

/**
 * The drift with the likeliest of the changes that its points leave open and one of the spans, or `beside` minutes before
 * or behind it, does; null: none.
 */
function changedWithin(course: CourseView, drift: Drift, spans: readonly Span[], beside = 0): Drift | null {
  for (const change of [drift, ...drift.open]) {
    const [from, to] = openMinutes(course, change);
    const within = spans.find(([begin, end]) => begin - beside <= to && from < end + beside);
    if (!within) continue;
    const { share, level, gain } = change;
    return { ...drift, from: change.from, share, level, gain, shift: (drift.shift / drift.level) * level, within };
  }
  return null;
}

/**
 * The courses of one station and model, whose lasting drifts are told since one day where their points leave that open:
 * the one that a cause is told since, else that of a drift of more sigma. A camera that moved changes many figures at
 * once, and each alone tells the day by chance a little early or late; of hundreds some by a day more than their points
 * leave open, so that one a day beside is told since the same day, too.
 */
export function toldTogether(courses: readonly CourseView[], causes: readonly Span[]): CourseView[] {
  const told = [...courses];
  const days: Span[] = [];
  courses
    .flatMap((course, measure) => {
      const drift = lastingDrift(course);
      return drift ? [{ course, measure, drift }] : [];
    })
    .sort((a, b) => b.drift.level - a.drift.level)
    .forEach(({ course, measure, drift }) => {
      const near = (spans: readonly Span[]) =>
        changedWithin(course, drift, spans) ?? changedWithin(course, drift, spans, dayMinutes);
      const found = near(causes) ?? near(days) ?? drift;
      const drifts = course.sums!.drifts.map((each) => (each === drift ? found : each));
      told[measure] = { ...course, sums: { ...course.sums!, drifts } };
      days.push(dayOf(beginMinute(course, found)));
    });
  return told;
}
