import assert from 'node:assert/strict';
import { test } from 'node:test';
import { classesFor, classOf, colourOf, dotsByClass, edgeText, roundOf, scaleOf } from '../src/plots/classes';

test('nine classes lie alike on both sides of zero', () => {
  const classes = classesFor(0.4, true);
  assert.deepEqual(classes.edges, [-0.4, -0.3, -0.2, -0.1, 0.1, 0.2, 0.3, 0.4]);
  for (const value of [0, 0.05, 0.15, 0.35, 0.4, 7]) {
    assert.equal(classOf(-value, classes), 8 - classOf(value, classes), String(value));
  }
  assert.equal(classOf(0, classes), 4);
  assert.equal(colourOf(classOf(-7, classes), classes), 'var(--signed-1)');
  assert.equal(colourOf(classOf(7, classes), classes), 'var(--signed-9)');
});

test('a border belongs to the class nearer to zero', () => {
  const classes = classesFor(0.4, true);
  assert.equal(classOf(0.1, classes), 4);
  assert.equal(classOf(-0.1, classes), 4);
  assert.equal(classOf(0.1001, classes), 5);
});

test('seven classes of magnitudes begin at zero', () => {
  const classes = classesFor(6.5, false);
  assert.deepEqual(classes.edges, [1, 2, 3, 4, 5, 6]);
  assert.equal(colourOf(classOf(0, classes), classes), 'var(--magnitude-1)');
  assert.equal(colourOf(classOf(99, classes), classes), 'var(--magnitude-7)');
});

test('the sign is told by the shape, too', () => {
  const signed = classesFor(1, true);
  assert.equal(roundOf(classOf(-0.9, signed), signed), true);
  assert.equal(roundOf(classOf(0.9, signed), signed), false);
  assert.equal(roundOf(0, classesFor(1, false)), false);
});

test('a stray dot does not wash out the scale', () => {
  const values = Array.from({ length: 199 }, (_, i) => (i % 2 ? 0.1 : -0.1));
  assert.equal(scaleOf([...values, 50, null]), 0.1);
});

test('dots without a value are in no class', () => {
  const lists = dotsByClass([0, null, NaN, 5, -5], classesFor(1, true));
  assert.deepEqual(lists[4], [0]);
  assert.deepEqual(lists[8], [3]);
  assert.deepEqual(lists[0], [4]);
  assert.equal(lists.flat().length, 3);
});

test('borders are written with their sign', () => {
  const classes = classesFor(0.4, true);
  assert.equal(edgeText(-0.4, classes), '\u22120.4');
  assert.equal(edgeText(0.1, classes), '+0.1');
});
