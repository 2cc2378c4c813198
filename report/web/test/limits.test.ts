import assert from 'node:assert/strict';
import { test } from 'node:test';
import { beyondWords, brokenBy, brokenWords, limitedFigures, ruleOf } from '../src/text/limits';
import type { CheckPair } from '../src/page_data';

const limitsOf = (...texts: string[]) =>
  texts.map((text) => ({ text, value: null, holds: false, pair: null, why: '' }));

const pair = {
  index: 0,
  state: 'finished',
  figures: { dy_means: 0.2, tri_rms: 0.4, tri_dis: [0.1, -0.7, null], dy_max: null },
  refined: { figures: { dy_means: 0.002 } },
} as unknown as CheckPair;

test('a pair breaks limits on any figure, of both sources, on both sides', () => {
  const cases: [string, string][] = [
    ['dy_means<=0.2', ''],
    ['dy_means<0.2', 'over: dy_means'],
    ['tri_rms>=0.47', 'below: tri_rms'],
    ['|tri_dis|<=0.5', 'over: tri_dis[1]'],
    ['tri_dis<=0.5', ''],
    ['|tri_dis[0]|<=0.05', 'over: tri_dis[0]'],
    ['refined.dy_means<=0.001', 'over: refined.dy_means'],
    ['dy_max<=1', 'not measured: dy_max'],
    ['summary.dy_means.mean<=0.1', ''],
    ['given_up<=0', ''],
  ];
  for (const [text, wanted] of cases) assert.equal(brokenWords(brokenBy(limitsOf(text), pair)), wanted, text);
});

test('two limits on one figure are told once, and in order', () => {
  const broken = brokenBy(limitsOf('tri_rms>=1', 'dy_means<=0.1', 'dy_means<=0.05', 'dy_max<=1'), pair);
  assert.equal(brokenWords(broken), 'over: dy_means; below: tri_rms; not measured: dy_max');
  assert.equal(beyondWords(broken, 'dy_means', 'library'), 'over the limit');
  assert.equal(beyondWords(broken, 'tri_rms', 'library'), 'below the limit');
  assert.equal(beyondWords(broken, 'dy_means', 'refined'), '');
  assert.equal(beyondWords(broken, 'dy_max', 'library'), '');
});

test('a pair given up breaks no limit', () => {
  assert.deepEqual(brokenBy(limitsOf('dy_means<=0.1'), { ...pair, state: 'given up' }), []);
});

test('the figures that limits judge in each pair', () => {
  const limits = limitsOf(
    'dy_means<=5',
    'dy_means<=1',
    '|tri_dis[0]|<=1',
    'refined.tri_rms<=1',
    'summary.dis_rms.max<=1',
  );
  assert.deepEqual(limitedFigures(limits, 'library'), ['dy_means', 'tri_dis[0]']);
  assert.deepEqual(limitedFigures(limits, 'refined'), ['tri_rms']);
});

test('a limit on all pairs together says which of their statistics it judges', () => {
  assert.equal(ruleOf('summary.dy_means.mean<=0.1')?.statistic, 'mean');
  assert.equal(ruleOf('|summary.refined.tri_dis[0].sd|<=0.1')?.statistic, 'sd');
  assert.equal(ruleOf('dy_means<=0.1')?.statistic, '');
  assert.equal(ruleOf('given_up<=0')?.statistic, '');
});
