import assert from 'node:assert/strict';
import { test } from 'node:test';
import { SelectionStore } from '../src/state/selection';

test('a second click takes the mark away', () => {
  const selection = new SelectionStore();
  selection.toggle(7);
  selection.toggle(9);
  selection.toggle(7);
  assert.deepEqual([...selection.marked], [9]);
});

test('listeners hear each change until their signal ends', () => {
  const selection = new SelectionStore();
  const end = new AbortController();
  let calls = 0;
  selection.subscribe(() => calls++, end.signal);
  selection.hover(3, { x: 1, y: 2 });
  selection.hover(3, { x: 1, y: 2 });
  selection.brush([1, 2]);
  end.abort();
  selection.clear();
  assert.equal(calls, 2);
  assert.equal(selection.hovered, null);
});

test('a brush that holds no dot is another thing than no brush', () => {
  const selection = new SelectionStore();
  selection.brush([]);
  assert.equal(selection.brushed?.size, 0);
  selection.brush(null);
  assert.equal(selection.brushed, null);
});
