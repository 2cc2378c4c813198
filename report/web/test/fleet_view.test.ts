import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Fleet, Measure } from '../src/fleet/fleet_data';
import { safePage } from '../src/fleet/parts/worst';
import type { Drift } from '../src/fleet/statistics/cusum';
import { recurrences, type CausePeriod } from '../src/fleet/statistics/recurring';
import { Calendar } from '../src/fleet/view/calendar';
import { causeWords } from '../src/fleet/view/cause_words';
import { worsens } from '../src/fleet/view/courses';
import { hashOf, placeOf, seenGroups } from '../src/fleet/view/filter';

const period = (day: number, n: number, diagnosed: number, mean: number, sd = 0.001): CausePeriod => ({
  day,
  n,
  diagnosed,
  mean,
  sd,
  error: 0.001,
});

test('a cause recurs from the first day of the unbroken days on which half of the sets tell it', () => {
  const days = [period(0, 1, 10, 0.05), period(1, 5, 10, 0.05), period(2, 9, 10, 0.05), period(3, 10, 10, 0.05)];
  const [found, ...more] = recurrences(days);
  assert.deepEqual(more, []);
  assert.equal(found?.from, 1);
  assert.equal(found?.to, 3);
  assert.equal(found?.lasts, true);
  assert.equal(found?.told, 24);
  assert.equal(found?.diagnosed, 30);
  assert.ok(Math.abs(found!.mean - 0.05) < 1e-12);
});

const quiet = (from: number, to: number, n = 0) =>
  Array.from({ length: to - from }, (_, k) => period(from + k, n, 42, n > 0 ? 0.01 : 0));
const told = (days: CausePeriod[]) => recurrences(days).map(({ from, told, diagnosed }) => [from, told, diagnosed]);

test('a cause that came up late in a day recurs from that day on', () => {
  const rest = [period(9, 40, 40, 0.05), period(10, 44, 44, 0.05)];
  assert.deepEqual(told([...quiet(0, 8), period(8, 19, 42, 0.0505), ...rest]), [[8, 103, 126]]);
  // In the last hour, and where a set in twenty told a little of it before.
  assert.deepEqual(told([...quiet(0, 8), period(8, 2, 42, 0.05), ...rest]), [[8, 86, 126]]);
  assert.deepEqual(told([...quiet(0, 8, 2), period(8, 3, 42, 0.05), ...rest]), [[8, 87, 126]]);
  // Three of them in the last hours, and one of those few: 0.039 in the mean, with a deviation of 0.02.
  assert.deepEqual(told([...quiet(0, 8, 2), period(8, 4, 42, 0.039, 0.02), ...rest]), [[8, 88, 126]]);
});

test('a day that is like those before it is not the first of a cause', () => {
  const rest = [period(9, 40, 40, 0.05), period(10, 44, 44, 0.05)];
  const later = [[9, 84, 84]];
  assert.deepEqual(told([...quiet(0, 9), ...rest]), later);
  assert.deepEqual(told([...quiet(0, 9, 2), ...rest]), later);
  assert.deepEqual(told([...quiet(0, 8), period(8, 19, 42, 0.01), ...rest]), later, 'of another value');
  assert.deepEqual(told([period(8, 19, 42, 0.05), ...rest]), later, 'nobody knows what was before');
});

test('a value that changed in the course of a day counts from that day on, by what it is behind it', () => {
  const days = [...[0, 1, 2, 3].map((day) => period(day, 10, 10, 0.01)), period(4, 40, 40, 0.03, 0.02)];
  const [found, ...more] = recurrences([...days, period(5, 10, 10, 0.05), period(6, 10, 10, 0.05)]);
  assert.deepEqual(more, []);
  assert.deepEqual([found?.from, found?.told, found?.diagnosed], [4, 60, 60]);
  assert.ok(Math.abs(found!.mean - 0.05) < 1e-12);
});

test('a cause that went away does not last, and a day without diagnosed sets breaks nothing', () => {
  const days = [period(0, 5, 5, 0.05), period(1, 0, 0, 0), period(2, 5, 5, 0.05), period(3, 0, 9, 0)];
  assert.deepEqual(
    recurrences(days).map(({ from, to, lasts }) => [from, to, lasts]),
    [[0, 2, false]],
  );
});

test('four sets, or a mean that may be zero, are no recurrence', () => {
  assert.deepEqual(recurrences([period(0, 4, 4, 0.05)]), []);
  assert.deepEqual(recurrences([period(0, 9, 9, 0.001, 0.01)]), []);
});

test('a cause that was always there counts from where its value changed', () => {
  const days = [0, 1, 2, 3].map((day) => period(day, 10, 10, 0.01));
  const later = [4, 5, 6].map((day) => period(day, 10, 10, 0.05));
  assert.deepEqual(
    recurrences([...days, ...later]).map(({ from, to }) => [from, to]),
    [[4, 6]],
  );
});

test('causes are told with their side, size and unit', () => {
  assert.equal(causeWords('rotation_x', 'deg', 0.0503, 0.0021), 'the right cameras look down by 0.0503° ± 0.0021°');
  assert.equal(
    causeWords('row_offset', 'px', -0.4, 0.05),
    'the principal points of the right cameras are higher by 0.400 px ± 0.05 px',
  );
  assert.equal(
    causeWords('focal_ratio', '', 0.001, 0.0001),
    'the focal lengths of the right cameras are longer by 0.100 % ± 0.01 %',
  );
});

test('days are told by the calendar of UTC', () => {
  const calendar = new Calendar({ first_day: '2026-10-14', period: 'day' });
  assert.equal(calendar.long(0), 'Wed 14 Oct 2026');
  assert.equal(calendar.long(39), 'Sun 22 Nov 2026');
  assert.equal(calendar.moment(90), 'Wed 14 Oct 2026, 01:30 UTC');
  assert.equal(new Calendar({ first_day: '2026-10-12', period: 'week' }).long(7), 'the week of 19 Oct 2026');
  assert.equal(new Calendar({ first_day: '2026-10-01', period: 'month' }).long(31), 'Nov 2026');
});

test('a period is from its first minute to that of the next', () => {
  const days = (period: Fleet['period'], first_day: string, day: number) =>
    new Calendar({ first_day, period }).minutesOf(day).map((minute) => minute / 1440);
  assert.deepEqual(days('day', '2026-10-14', 3), [3, 4]);
  assert.deepEqual(days('week', '2026-10-12', 7), [7, 14]);
  assert.deepEqual(days('month', '2026-10-01', 31), [31, 61]);
  assert.deepEqual(days('month', '2026-12-01', 0), [0, 31]);
  assert.deepEqual(days('year', '2028-01-01', 0), [0, 366]);
});

const fleet = {
  keys: [
    { key: 'station', values: ['1', 'a&b=c', null] },
    { key: 'model', values: ['K2'] },
  ],
  measures: [{}, {}],
} as unknown as Fleet;

test('the address holds the filter and comes back as it was', () => {
  for (const filter of [
    [null, null],
    [1, 0],
    [2, null],
  ]) {
    const place = { filter, course: [1, 0] as [number, number], measure: 1 };
    assert.deepEqual(placeOf(hashOf(place, fleet), fleet), place);
  }
  assert.deepEqual(placeOf('#by.station=nowhere&figure=9&at=x', fleet), {
    filter: [null, null],
    course: null,
    measure: null,
  });
});

test('a filter sees the groups that have all of its values', () => {
  const groups = [
    [0, 0],
    [1, 0],
    [1, 1],
  ];
  assert.deepEqual(seenGroups([1, null], groups), [false, true, true]);
  assert.deepEqual(seenGroups([1, 1], groups), [false, false, true]);
  assert.deepEqual(seenGroups([null, null], groups), [true, true, true]);
});

test('a drift away from the only limit, or of a figure without one, is none that matters', () => {
  const drift = (side: 'up' | 'down'): Drift => ({
    side,
    from: 0,
    share: 1,
    level: 1,
    gain: 1,
    to: 1,
    lasts: true,
    shift: 1,
    open: [],
  });
  const bounds = (value: Measure['value'], lower: number | null, upper: number | null): Measure =>
    ({ value, lower: [null, lower], upper: [null, upper] }) as unknown as Measure;
  const cases: [Measure, boolean, boolean][] = [
    [bounds('max', null, 1), true, false],
    [bounds('abs', null, 1), true, false],
    [bounds('min', 1, null), false, true],
    [bounds('mean', null, 1), true, false],
    [bounds('mean', 1, null), false, true],
    [bounds('mean', 1, 2), true, true],
    [bounds('mean', null, null), false, false],
  ];
  for (const [measure, up, down] of cases) {
    assert.equal(worsens(measure, drift('up')), up);
    assert.equal(worsens(measure, drift('down')), down);
  }
});

test('only pages by their way from this one are linked to', () => {
  const cases: [string | null, boolean][] = [
    ['pages/ab12.html', true],
    ['my%20pages/ab12.html', true],
    ['/etc/ab.html', false],
    ['../pages/ab.html', true],
    ['pages//ab.html', false],
    ['javascript:alert(1)//.html', false],
    ['http://x/ab.html', false],
    ['//x/ab.html', false],
    ['pages/ab', false],
    [null, false],
  ];
  for (const [page, linked] of cases) assert.equal(safePage(page), linked ? page : null, String(page));
});
