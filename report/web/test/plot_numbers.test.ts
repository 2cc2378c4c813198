import assert from 'node:assert/strict';
import { test } from 'node:test';
import { decimalsOf, fixed, niceStep, plain, quantile, rangeOf, short, ticksOf } from '../src/plots/numbers';

test('a step is the next of 1, 2, 2.5, 5 times a power of ten', () => {
  const cases: [number, number][] = [
    [1, 1],
    [1.01, 2],
    [2.3, 2.5],
    [0.0026, 0.005],
    [0.3, 0.5],
    [730, 1000],
    [0, 1],
    [NaN, 1],
  ];
  for (const [value, step] of cases) assert.equal(niceStep(value), step, String(value));
});

test('a step shows as many decimals as it has', () => {
  assert.deepEqual([20, 1, 0.5, 0.25, 0.002].map(decimalsOf), [0, 0, 1, 2, 3]);
});

test('a number is written with a true minus, a plus only on request and none before zero', () => {
  assert.equal(fixed(-1.25, 1), '\u22121.3');
  assert.equal(fixed(1.25, 2, true), '+1.25');
  assert.equal(fixed(-0.001, 2, true), '0.00');
});

test('three digits mean something, without an exponent', () => {
  assert.equal(short(0.0123456), '0.0123');
  assert.equal(short(-1234.5), '\u22121235');
  assert.equal(short(0), '0');
  assert.equal(short(null), '\u2013');
  assert.equal(short(NaN), '\u2013');
});

test('a limit is written as somebody wrote it', () => {
  assert.deepEqual([0.1, 0.025, 100, 0, -2.5, 0.00005].map(plain), [
    '0.1',
    '0.025',
    '100',
    '0',
    '\u22122.5',
    '0.00005',
  ]);
});

test('ticks are round and inside the range', () => {
  assert.deepEqual(ticksOf(-0.11, 0.12, 5), { values: [-0.1, -0.05, 0, 0.05, 0.1], decimals: 2 });
  assert.deepEqual(ticksOf(0, 3, 10, 1).values, [0, 1, 2, 3]);
});

test('an axis has a width even for one value, or none', () => {
  assert.deepEqual(rangeOf([2], 0.5), [1, 3]);
  assert.deepEqual(rangeOf([0], 0.5), [-0.5, 0.5]);
  assert.deepEqual(rangeOf([]), [0, 1]);
});

test('a quantile is one of the values', () => {
  assert.equal(quantile([5, 1, 4, 2, 3], 0.5), 3);
  assert.equal(quantile([5, 1, 4, 2, 3], 1), 5);
  assert.equal(quantile([], 0.5), 0);
});
