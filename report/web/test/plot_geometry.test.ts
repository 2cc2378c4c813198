import assert from 'node:assert/strict';
import { test } from 'node:test';
import { binsOf } from '../src/plots/bins';
import { BoardProjection } from '../src/plots/board_projection';
import { gridLines, sparse } from '../src/plots/grid_lines';
import { arrowPath } from '../src/plots/svg';
import { turned } from '../src/plots/turn';
import { moved, shownPart, zoomedAt } from '../src/plots/zoom';

const whole = { factor: 1, x: 0.5, y: 0.5 };
const near = (a: number, b: number) => assert.ok(Math.abs(a - b) < 1e-9, `${a} is not ${b}`);

test('the picture fills a view of its own shape', () => {
  assert.deepEqual(shownPart({ width: 800, height: 600 }, 0.75, whole), { x: 0, y: 0, width: 800, height: 600 });
});

test('a view of another shape has a rim on both sides', () => {
  const part = shownPart({ width: 400, height: 600 }, 0.75, whole);
  assert.deepEqual(part, { x: -200, y: 0, width: 800, height: 600 });
});

test('what is under the pointer stays there when it is enlarged', () => {
  const picture = { width: 800, height: 600 };
  const place = { x: 0.25, y: 0.8 };
  const zoom = zoomedAt(whole, 4, place);
  const part = shownPart(picture, 0.75, zoom);
  near(part.width, 200);
  near(part.x + place.x * part.width, 200);
  near(part.y + place.y * part.height, 480);
});

test('the zoom ends at the whole picture and the move at its rim', () => {
  assert.deepEqual(zoomedAt(zoomedAt(whole, 4, { x: 0, y: 0 }), 0.01, { x: 1, y: 1 }), whole);
  assert.deepEqual(zoomedAt({ factor: 8, x: 0.2, y: 0.2 }, 0, { x: 0, y: 0 }), whole);
  assert.deepEqual(moved({ factor: 2, x: 0.5, y: 0.5 }, 9, -9), { factor: 2, x: 0.25, y: 0.75 });
});

test('bars have round borders and every dot is in one', () => {
  const bins = binsOf([0.01, 0.02, 0.021, null, 0.099, 0.1], 0.01, 0.1, 9);
  assert.equal(bins.step, 0.01);
  near(bins.from, 0.01);
  assert.equal(bins.dots.flat().length, 5);
  assert.deepEqual(bins.dots[1], [1, 2]);
});

test('seen from the front the board is as it is; laid back, what stands out stands up', () => {
  const point = { x: 3, y: 4, z: -5 };
  assert.deepEqual(turned(point, { around: 0, back: 0 }), { x: 3, y: 4 });
  const laid = turned(point, { around: 0, back: 90 });
  near(laid.x, 3);
  near(laid.y, -5);
  const quarter = turned(point, { around: 90, back: 0 });
  near(quarter.x, -4);
  near(quarter.y, 3);
});

test('the board fits its box however it is turned, and its middle stays', () => {
  const board = { boardX: [0, 300, 0, 300], boardY: [0, 0, 200, 200], offX: [0], offY: [0], offZ: [0] };
  const box = { x: 10, y: 20, width: 400, height: 300 };
  for (let around = 0; around < 360; around += 15) {
    for (let back = 0; back <= 90; back += 15) {
      const projection = new BoardProjection(board, { around, back }, box);
      const middle = projection.at({ x: 150, y: 100, z: 0 });
      near(middle.x, 210);
      near(middle.y, 170);
      for (const i of [0, 1, 2, 3]) {
        const { x, y } = projection.at({ x: board.boardX[i] ?? 0, y: board.boardY[i] ?? 0, z: 0 });
        assert.ok(x >= 10 && x <= 410 && y >= 20 && y <= 320, `${around} ${back}: ${x} ${y}`);
      }
    }
  }
});

test('errors are enlarged by the factor, the true board is not', () => {
  const board = { boardX: [0, 100], boardY: [0, 0], offX: [0.5, 0], offY: [0, null], offZ: [0, 0] };
  const projection = new BoardProjection(board, { around: 0, back: 0 }, { x: 0, y: 0, width: 230, height: 9000 });
  const [truth, measured] = [projection.dots(0), projection.dots(20)];
  near((truth.x[1] ?? NaN) - (truth.x[0] ?? NaN), 200);
  near((measured.x[0] ?? NaN) - (truth.x[0] ?? NaN), 20);
});

test('neighbours are linked, a gap is not bridged and a row does not run on into the next', () => {
  // 0 1 .
  // 3 4 5
  const column = [0, 1, 0, 1, 2];
  const row = [0, 0, 1, 1, 1];
  const links = gridLines(column, row).map(([i, j]) => `${i}-${j}`);
  assert.deepEqual(links.sort(), ['0-1', '0-2', '1-3', '2-3', '3-4']);
});

test('of the true board every few rows and the rim are drawn', () => {
  const column = Array.from({ length: 169 }, (_, i) => i % 13);
  const row = Array.from({ length: 169 }, (_, i) => Math.floor(i / 13));
  const kept = sparse(gridLines(column, row), column, row);
  const rows = new Set(kept.filter(([i, j]) => row[i] === row[j]).map(([i]) => row[i]));
  assert.deepEqual([...rows], [0, 2, 4, 6, 8, 10, 12]);
});

test('an arrow ends where its value says', () => {
  assert.match(arrowPath(10, 20, -12), /^M10 20v-12m-3 3l3 -3l3 3$/);
});

test('errors that are drawn larger make the board smaller, so that all of them lie in the box', () => {
  const corner = { boardX: [0, 300, 0, 300], boardY: [0, 0, 200, 200] };
  const board = { ...corner, offX: [0, 2, 0, 0], offY: [0, 0, 0, 0], offZ: [0, 0, -3, 0] };
  const box = { x: 10, y: 20, width: 400, height: 300 };
  for (const factor of [1, 50, 500]) {
    for (let back = 0; back <= 90; back += 30) {
      const { x, y } = new BoardProjection(board, { around: 30, back }, box, factor).dots(factor);
      for (const at of x) assert.ok(at >= box.x - 1e-6 && at <= box.x + box.width + 1e-6, `${factor}, ${back}: ${at}`);
      for (const at of y) assert.ok(at >= box.y - 1e-6 && at <= box.y + box.height + 1e-6, `${factor}, ${back}: ${at}`);
    }
  }
  const plain = new BoardProjection(board, { around: 0, back: 0 }, box).at({ x: 300, y: 0, z: 0 });
  const same = new BoardProjection(board, { around: 0, back: 0 }, box, 1).at({ x: 300, y: 0, z: 0 });
  assert.deepEqual(same, plain);
});
