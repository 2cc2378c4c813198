import assert from 'node:assert/strict';
import { test } from 'node:test';
import { capability } from '../src/fleet/statistics/capability';
import { chiSquareQuantile } from '../src/fleet/statistics/chi_square';
import { cusum, drifts } from '../src/fleet/statistics/cusum';
import { individuals } from '../src/fleet/statistics/individuals';
import { pooled } from '../src/fleet/statistics/moments';
import { shareDifference, wilson } from '../src/fleet/statistics/proportion';

const near = (found: number | undefined, wanted: number, off: number) =>
  assert.ok(found !== undefined && Math.abs(found - wanted) <= off, `${found} is not ${wanted}`);

test("Wilson's intervals are those of Newcombe's table (1998)", () => {
  const cases: [number, number, number, number][] = [
    [81, 263, 0.2553, 0.3662],
    [15, 148, 0.0624, 0.1605],
    [0, 20, 0, 0.1611],
    [1, 29, 0.0061, 0.1718],
  ];
  for (const [count, of, low, high] of cases) {
    near(wilson(count, of)?.low, low, 5e-5);
    near(wilson(count, of)?.high, high, 5e-5);
  }
  assert.equal(wilson(29, 29)?.high, 1);
  assert.equal(wilson(0, 0), null);
});

test("differences of shares are those of Newcombe's table (1998, method 10)", () => {
  const cases: [number, number, number, number, number, number][] = [
    [56, 70, 48, 80, 0.0524, 0.3339],
    [9, 10, 3, 10, 0.1705, 0.809],
  ];
  for (const [a, m, b, n, low, high] of cases) {
    const found = shareDifference(wilson(a, m)!, wilson(b, n)!);
    near(found.low, low, 5e-5);
    near(found.high, high, 5e-5);
  }
});

test('chi-square quantiles are those of the tables', () => {
  const cases: [number, number, number][] = [
    [0.025, 19, 8.9065],
    [0.975, 19, 32.8523],
    [0.95, 1, 3.8415],
    [0.975, 100, 129.5612],
    [0.025, 100, 74.2219],
  ];
  for (const [p, freedom, value] of cases) near(chiSquareQuantile(p, freedom), value, 1e-4);
});

test('Cp of a bottle of Montgomery, chapter 8: 2.29, 1.57 to 3.01', () => {
  const { cp, cpk } = capability({ n: 20, mean: 50, sd: 1.75 }, 38, 62);
  near(cp?.value, 2.29, 0.005);
  // The book goes on from the rounded 2.29.
  near(cp?.low, (1.57 * 16) / 7 / 2.29, 0.005);
  near(cp?.high, (3.01 * 16) / 7 / 2.29, 0.005);
  near(cpk?.value, 2.29, 0.005);
});

test('Cpk has the interval of Bissell (1990)', () => {
  // 1.33 of 20: 1.33 * (1 -+ 1.959964 * sqrt(1 / (9 * 20 * 1.33^2) + 1 / 38))
  const { cp, cpk } = capability({ n: 20, mean: 0, sd: 1 }, null, 3.99);
  assert.equal(cp, null);
  near(cpk?.value, 1.33, 1e-12);
  near(cpk?.low, 0.882606, 2e-6);
  near(cpk?.high, 1.777394, 2e-6);
  assert.deepEqual(capability({ n: 1, mean: 0, sd: 0 }, 0, 1), { cp: null, cpk: null });
  assert.equal(capability({ n: 9, mean: 0, sd: 1 }, null, null).cpk, null);
});

test('lots together have the mean and standard deviation of all', () => {
  const all = pooled([
    { n: 2, mean: 2, sd: Math.SQRT2 },
    { n: 1, mean: 8, sd: 0 },
    { n: 0, mean: 0, sd: 0 },
  ]);
  // 1, 3, 8
  assert.equal(all.n, 3);
  near(all.mean, 4, 1e-12);
  near(all.sd, Math.sqrt(13), 1e-12);
});

const costs = [310, 288, 297, 298, 307, 303, 294, 297, 308, 306, 294, 299, 297, 299, 314, 295, 293, 306, 301, 304];

test('limits of individuals and moving ranges are those of Montgomery, table 6.6', () => {
  const chart = individuals(costs)!;
  near(chart.centre, 300.5, 1e-9);
  near(chart.meanRange, 7.79, 0.005);
  near(chart.high, 321.22, 0.01);
  near(chart.low, 279.78, 0.01);
  near(chart.rangeHigh, 25.45, 0.01);
  assert.equal(individuals([1]), null);
});

const fillings = [
  9.45, 7.99, 9.29, 11.66, 12.16, 10.18, 8.04, 11.46, 9.2, 10.34, 9.03, 11.47, 10.51, 9.4, 10.08, 9.37, 10.62, 10.31,
  8.52, 10.84, 10.9, 9.33, 12.29, 11.5, 10.6, 11.08, 10.38, 11.62, 11.31, 10.52,
];
const settings = { target: 10, sigma: 1, allowance: 0.5, decision: 5, mixed: false };

test('cumulative sums are those of Montgomery, table 9.2', () => {
  const { up, down } = cusum(fillings, settings);
  const wanted: [number, number][] = [
    [2, 0],
    [5, 2.82],
    [28, 4.47],
    [29, 5.28],
    [30, 5.3],
  ];
  for (const [period, high] of wanted) near(up[period - 1], high, 0.006);
  near(down[1], 1.56, 0.006);
});

test('the shift of that table is told since its 23rd period', () => {
  const [drift, ...more] = drifts(fillings, settings).drifts;
  assert.deepEqual(more, []);
  assert.equal(drift?.side, 'up');
  assert.equal(drift?.from, 22);
  assert.equal(drift?.to, 29);
  assert.equal(drift?.lasts, true);
  near(drift?.shift, (12.29 + 11.5 + 10.6 + 11.08 + 10.38 + 11.62 + 11.31 + 10.52) / 8 - 10, 1e-12);
});

test('a drift that came back ends where it did, and the next one is told, too', () => {
  const values = [...Array(20).fill(0), ...Array(10).fill(4), ...Array(20).fill(0), ...Array(6).fill(-4)] as number[];
  const found = drifts(values, { target: 0, sigma: 1, allowance: 0.5, decision: 8, mixed: false }).drifts;
  assert.deepEqual(
    found.map(({ side, from, to, lasts, shift }) => [side, from, to, lasts, shift]),
    [
      ['up', 20, 29, false, 4],
      ['down', 50, 55, true, -4],
    ],
  );
});

test('without scatter nothing drifts', () => {
  assert.deepEqual(drifts([1, 1, 9], { target: 1, sigma: 0, allowance: 0.5, decision: 5, mixed: false }).drifts, []);
});
