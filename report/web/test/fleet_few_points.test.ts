import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Fleet } from '../src/fleet/fleet_data';
import { courseOf } from '../src/fleet/view/courses';
import { lastBreak, ruleWords, stateWords, unknownWords } from '../src/fleet/view/few_points';

/** One group whose points are these, a minute apart. */
const course = (values: (number | null)[]) =>
  courseOf(
    {
      courses: [{ group: 0, each: 1, waiting: 0, minute: values.map((_, k) => k), values: [values] }],
    } as unknown as Fleet,
    [0],
    0,
  );
/** Breaks no rule, nor do the first ones of it. */
const quiet = [3, 5, 6, 7, 2, 5, 6, 3, 1, 4, 6, 7, 5, 4, 6, 3, 7, 8, 5, 3, 6, 4, 5, 2];
const quietOf = (count: number) => quiet.slice(0, count);

test('below 24 points no drift can be told, and nothing is called steady', () => {
  const few = course(quietOf(23));
  assert.equal(stateWords(few), '23 points, too few');
  assert.equal(unknownWords(few), '23 points are too few to tell a drift; 24 are needed');
  assert.equal(unknownWords(course([1])), '1 point is too few to tell a drift; 24 are needed');
});

test('from 24 points on a course without a broken rule is steady', () => {
  const enough = course(quietOf(24));
  assert.equal(stateWords(enough), 'steady');
  assert.equal(unknownWords(enough), '');
  assert.equal(ruleWords(enough), '');
  assert.equal(lastBreak(enough), null);
});

test('rules that few points break are told with the last point that does', () => {
  // Centre 23 / 14, mean range 18 / 13: three sigma end 3.68 above the centre, and eleven in a row lie below it.
  const jump = course([...Array.from({ length: 11 }, () => 1), 10, 1, 1]);
  assert.equal(ruleWords(jump), 'rules 1, 2');
  assert.equal(stateWords(jump), 'rules 1, 2');
  assert.equal(ruleWords(course([...quiet.slice(0, 5), 40])), 'rule 1');
  assert.equal(lastBreak(jump), 11);
  // Ten below the centre and ten above it: nine in a row on a side, and the ends lie beyond three sigma.
  const step = course([...Array.from({ length: 10 }, () => 0), ...Array.from({ length: 10 }, () => 1)]);
  assert.equal(ruleWords(step).startsWith('rules 1, 2'), true, ruleWords(step));
  assert.equal(lastBreak(step), 19);
  assert.equal(unknownWords(step), '20 points are too few to tell a drift; 24 are needed');
});

test('points that do not scatter say so', () => {
  const flat = course(Array.from({ length: 30 }, () => 2));
  assert.equal(stateWords(flat), 'no scatter');
  assert.equal(unknownWords(flat), 'the points do not scatter, so that no drift can be told');
});

test('points without a number do not count', () => {
  assert.equal(stateWords(course([...quietOf(12), null, null])), '12 points, too few');
});
