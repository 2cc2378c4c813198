// Since when a station and model are off: one day of a cause and of all figures that it changed.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Fleet } from '../src/fleet/fleet_data';
import { beginMinute, courseOf, lastingDrift, type CourseView } from '../src/fleet/view/courses';
import { toldTogether } from '../src/fleet/view/since';

const day = 1440;
const dates = 36;

/** A point a day at noon; quiet, then from a day on off by some sigma; the day before and the first of them are given. */
function course(from: number, shift: number, before: number, first: number): CourseView {
  const values = Array.from({ length: dates }, (_, at) => (at % 2 === 0 ? 0.564 : -0.564) + (at < from ? 0 : shift));
  values[from - 1] = before;
  values[from] = first;
  const minute = values.map((_, at) => at * day + day / 2);
  const only = { group: 0, each: 1, waiting: 0, begin: minute, minute, values: [values] };
  return courseOf({ courses: [only] } as unknown as Fleet, [0], 0);
}

const dayOf = (told: CourseView) => Math.floor(beginMinute(told, lastingDrift(told)!) / day);
const span = (date: number): [number, number] => [date * day, (date + 1) * day];

// By themselves: 29, as its point is off by chance before the change of day 30; 30; 24.
const early = course(30, 4, 2.3, 4);
const right = course(30, 6, 0, 6);
const other = course(24, 4, 0, 4);

test('alone each is told by its own points', () => {
  assert.deepEqual([early, right, other].map(dayOf), [29, 30, 24]);
  assert.deepEqual(toldTogether([early], []).map(dayOf), [29]);
});

test('a drift is told since the day of a cause where its points leave that open', () => {
  const [told] = toldTogether([early], [span(30)]);
  assert.equal(dayOf(told!), 30);
  const [points, drift] = [told!.values.slice(30), lastingDrift(told!)!];
  const mean = points.reduce((sum, value) => sum + value, 0) / points.length;
  assert.ok(Math.abs(drift.shift - (mean - told!.baseline!.mean)) < 1e-9, 'by what it is since then');
  assert.equal(dayOf(toldTogether([early], [span(24), span(33)])[0]!), 29, 'not where they exclude it');
});

test('without a cause the drift of the most sigma tells the day, of those whose points leave it open', () => {
  assert.deepEqual(toldTogether([early, right, other], []).map(dayOf), [30, 30, 24]);
  assert.deepEqual(toldTogether([other, right, early], [span(29)]).map(dayOf), [24, 29, 29]);
});

test('a day beside that of a cause is told as that day although the points exclude it', () => {
  assert.deepEqual(toldTogether([other], [span(25)]).map(dayOf), [25]);
  assert.deepEqual(toldTogether([other], [span(23)]).map(dayOf), [23]);
  assert.deepEqual(toldTogether([other], [span(26)]).map(dayOf), [24]);
});

test('what does not drift stays as it is', () => {
  const quiet = course(30, 0, 0, 0);
  assert.equal(lastingDrift(quiet), null);
  assert.deepEqual(toldTogether([quiet], [span(30)]), [quiet]);
});
