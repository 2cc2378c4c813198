// How often the rule alarms, and how well it tells since when, by courses whose truth is known.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Fleet } from '../src/fleet/fleet_data';
import { changesIn } from '../src/fleet/statistics/change_point';
import { beginMinute, courseOf, lastingDrift } from '../src/fleet/view/courses';
import { openMinutes } from '../src/fleet/view/since';

/** Normal numbers, the same ones each time (mulberry32; Box and Muller, 1958). */
function normalDraw(seed: number): () => number {
  let state = seed;
  const uniform = () => {
    state = (state + 0x6d2b79f5) | 0;
    let mixed = Math.imul(state ^ (state >>> 15), 1 | state);
    mixed = (mixed + Math.imul(mixed ^ (mixed >>> 7), 61 | mixed)) ^ mixed;
    return ((mixed ^ (mixed >>> 14)) >>> 0) / 4294967296;
  };
  return () => Math.sqrt(-2 * Math.log(1 - uniform())) * Math.cos(2 * Math.PI * uniform());
}

interface Made {
  each: number;
  begin: number[];
  minute: number[];
  values: number[];
}

function view({ each, begin, minute, values }: Made) {
  const course = { group: 0, each, waiting: 0, begin, minute, values: [values] };
  return courseOf({ courses: [course] } as unknown as Fleet, [0], 0);
}

const single = (values: number[]): Made => {
  const minute = values.map((_, k) => k);
  return { each: 1, begin: minute, minute, values };
};

test('about one in a thousand courses that nobody disturbed alarms, however many points it has', () => {
  for (const points of [24, 30, 45, 60, 100]) {
    const draw = normalDraw(points);
    const courses = 4000;
    let alarms = 0;
    for (let k = 0; k < courses; k++) {
      const { sums } = view(single(Array.from({ length: points }, draw)));
      if (sums!.drifts.length > 0) alarms++;
    }
    // 4 are expected; 12 or more come of a rate of one in a thousand once in a thousand times.
    assert.ok(alarms < 12, `${alarms} of ${courses} courses of ${points} points`);
  }
});

test('a shift of two sigma is seen in nine of ten courses of 60 points, and lasts', () => {
  const draw = normalDraw(2);
  let seen = 0;
  for (let k = 0; k < 500; k++) {
    const drift = lastingDrift(view(single(Array.from({ length: 60 }, (_, at) => draw() + (at < 36 ? 0 : 2)))));
    if (drift?.side === 'up' && Math.abs(drift.from - 36) <= 3) seen++;
  }
  assert.ok(seen >= 450, `${seen} of 500`);
});

const day = 1440;
const [morning, evening] = [8 * 60, 18 * 60];

/** Forty days, sets from morning to evening, so many of them a point; from a minute on they are off by as many sigma of a point. */
function made(setsOfADay: number, each: number, from: number, shift: number, draw: () => number): Made {
  const sets: { at: number; value: number }[] = [];
  for (let date = 0; date < 40; date++)
    for (let k = 0; k < setsOfADay; k++) {
      const at = date * day + morning + (k * (evening - morning)) / (setsOfADay - 1);
      sets.push({ at, value: draw() * Math.sqrt(each) + (at >= from ? shift : 0) });
    }
  const course: Made = { each, begin: [], minute: [], values: [] };
  for (let end = each; end <= sets.length; end += each) {
    const own = sets.slice(end - each, end);
    course.begin.push(own[0]!.at);
    course.minute.push(own[each - 1]!.at);
    course.values.push(own.reduce((sum, { value }) => sum + value, 0) / each);
  }
  return course;
}

test('the day since when is told, whether the shift came at noon or at night, and left open in 97 of 100', () => {
  // [sets of a day, sets of a point, when on day 33, least share of right days]
  const cases: [number, number, number, number][] = [
    [20, 20, 13 * 60, 0.72],
    [20, 20, 0, 0.76],
    [20, 8, 13 * 60, 0.95],
    [20, 8, 0, 0.78],
    [20, 14, 13 * 60, 0.75],
  ];
  for (const [setsOfADay, each, when, least] of cases) {
    const draw = normalDraw(each + when);
    let right = 0;
    let seen = 0;
    let open = 0;
    const isOpen = ([from, to]: [number, number]) => from < 34 * day && 33 * day <= to;
    for (let k = 0; k < 400; k++) {
      const course = view(made(setsOfADay, each, 33 * day + when, 4, draw));
      const drift = lastingDrift(course);
      if (!drift) continue;
      seen++;
      if (Math.floor(beginMinute(course, drift) / day) === 33) right++;
      if ([drift, ...drift.open].map((change) => openMinutes(course, change)).some(isOpen)) open++;
    }
    assert.ok(seen > 360, `${seen} of 400 are seen`);
    assert.ok(right >= least * seen, `${setsOfADay} sets a day, ${each} a point, at ${when}: ${right} of ${seen}`);
    assert.ok(open >= 0.97 * seen, `${setsOfADay} sets a day, ${each} a point, at ${when}: open in ${open} of ${seen}`);
  }
});

test('a change is where the squares of what is left are least', () => {
  assert.deepEqual(changesIn([0, 0, 0, 2, 2, 2], false)[0], { from: 3, share: 1, level: 2, gain: 12 });
  assert.deepEqual(changesIn([0, 0, 1, 2, 2, 2], true)[0], { from: 2, share: 0.5, level: 2, gain: 13 });
  // A point less than a fifth of the way is none that is off in part.
  assert.deepEqual(changesIn([0, 0, 0.38, 2, 2, 2], true)[0], { from: 3, share: 1, level: 2, gain: 12 });
  assert.deepEqual(changesIn([3], true), [{ from: 0, share: 1, level: 3, gain: 9 }]);
});

test('changes are left open that gain less by no more than 6.63', () => {
  // Three points of 3 gain 27; with the one before of 1, four of the mean 2.5 gain 25; with two before, five of the mean 2 gain 20.
  // The last two of them gain 18.
  const found = changesIn([0, 0, 1, 3, 3, 3], false);
  assert.deepEqual(
    found.map(({ from, gain }) => [from, gain]),
    [
      [3, 27],
      [2, 25],
    ],
  );
  assert.equal(changesIn([0, 0, 1, 2.9, 2.9, 2.9], false).length, 3, 'of 25.23 the third is less by 6.41');
});

test('documents without the begin of points count from the end of the point before', () => {
  const { begin: _, ...earlier } = made(4, 4, 30 * day, 9, normalDraw(1));
  const course = view(earlier as Made);
  const drift = lastingDrift(course)!;
  assert.equal(drift.from, 30);
  assert.equal(beginMinute(course, { ...drift, share: 0.75, level: 4 }), (29 * day + 30 * day) / 2 + evening);
});
