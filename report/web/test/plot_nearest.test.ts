import assert from 'node:assert/strict';
import { test } from 'node:test';
import { NearestDot, placesOf } from '../src/plots/nearest';

/** Four by three dots, ten apart, the sixth not drawn. */
function grid(): NearestDot {
  const x = Float64Array.from({ length: 12 }, (_, i) => 10 * (i % 4));
  const y = Float64Array.from({ length: 12 }, (_, i) => 10 * Math.floor(i / 4));
  x[5] = NaN;
  return new NearestDot({ x, y });
}

test('the next dot is found within reach only', () => {
  const dots = grid();
  assert.equal(dots.find(19, 11, 5), 6);
  assert.equal(dots.find(60, 60, 5), null);
  assert.notEqual(dots.find(10, 10, 20), 5);
});

test('the search agrees with looking at every dot', () => {
  const n = 500;
  const x = Float64Array.from({ length: n }, (_, i) => (i * 7919) % 997);
  const y = Float64Array.from({ length: n }, (_, i) => (i * 104729) % 991);
  const dots = new NearestDot({ x, y });
  for (let k = 0; k < 200; k++) {
    const [px, py] = [(k * 331) % 1000, (k * 577) % 1000];
    const far = (i: number) => Math.hypot((x[i] ?? NaN) - px, (y[i] ?? NaN) - py);
    const least = Math.min(...Array.from(x, (_, i) => far(i)));
    assert.equal(far(dots.find(px, py, 2000) ?? -1), least);
  }
});

test('arrow keys step to the neighbour, past a gap, and stop at the rim', () => {
  const dots = grid();
  assert.equal(dots.towards(0, 1, 0), 1);
  assert.equal(dots.towards(4, 1, 0), 6);
  assert.equal(dots.towards(6, 0, 1), 10);
  assert.equal(dots.towards(3, 1, 0), null);
  assert.equal(dots.first(), 0);
});

test('a rectangle takes the dots inside, however it was drawn', () => {
  assert.deepEqual(grid().within(25, 25, 5, -5), [1, 2, 6, 9, 10]);
});

test('no dots, one dot and a row of dots are no trouble', () => {
  assert.equal(new NearestDot({ x: new Float64Array(), y: new Float64Array() }).find(0, 0, 9), null);
  assert.equal(new NearestDot({ x: Float64Array.of(4), y: Float64Array.of(4) }).find(0, 0, 9), 0);
  const line = new NearestDot({ x: Float64Array.of(0, 5, 10), y: Float64Array.of(1, 1, 1) });
  assert.equal(line.find(9, 0, 9), 2);
});

test('a dot that was not measured has no place', () => {
  const { x } = placesOf(
    [1, null],
    [1, 1],
    (v) => 2 * v,
    (v) => v,
  );
  assert.equal(x[0], 2);
  assert.ok(Number.isNaN(x[1]));
});
