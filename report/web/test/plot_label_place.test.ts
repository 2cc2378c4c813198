import assert from 'node:assert/strict';
import { test } from 'node:test';
import { labelPlace } from '../src/plots/label_place';

const box = { x: 40, y: 10, width: 300, height: 100 };
const place = (at: number, points: { x: number; y: number }[]) => labelPlace('limit 0.05 px', at, box, points);

test('the name of a limit stands at the left above its line', () => {
  assert.deepEqual(place(60, []), { x: 44, y: 56 });
});

test('the name of a limit makes way for the crosses there', () => {
  const left = { x: 80, y: 52 };
  assert.equal(place(60, [left]).y, 74);
  const below = { x: 80, y: 72 };
  const right = place(60, [left, below]);
  assert.ok(right.x > 200);
  assert.equal(right.y, 56);
});

test('a limit near the axis keeps its name above', () => {
  assert.equal(place(106, [{ x: 80, y: 98 }]).y, 102);
});
