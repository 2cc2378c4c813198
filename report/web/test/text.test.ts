import assert from 'node:assert/strict';
import { test } from 'node:test';
import { csvField } from '../src/dom/copy';
import { hashOf, missingWords, placeOf } from '../src/state/route';
import { Explanations, flattened, valueOf } from '../src/text/figures';
import { exceeds, ruleOf, rulesOn } from '../src/text/limits';
import { between, percent, shown, signed, withError } from '../src/text/number';
import type { CheckPair } from '../src/page_data';

test('numbers keep four figures that count', () => {
  assert.equal(shown(0.96320856), '0.9632');
  assert.equal(shown(567.8404), '567.8');
  assert.equal(shown(12345.678), '12345.7');
  assert.equal(shown(-0.5), '\u22120.5000');
  assert.equal(shown(6.1035156e-5), '0.00006104');
  assert.equal(shown(9.996e-4), '0.0009996');
  assert.equal(shown(-6.1035156e-8), '\u22126.104e\u22128');
  assert.equal(shown(0), '0');
  assert.equal(signed(2), '+2');
});

test('a value ends where its standard error leaves it', () => {
  assert.equal(withError(-0.0504612, 0.00052), '\u22120.05046 ± 0.00052');
  assert.equal(withError(567.8404, 0.0017), '567.8404 ± 0.0017');
  assert.equal(withError(1, 0), '1 ± 0');
  assert.equal(withError(3.6694, 0.1234, true), '+3.67 ± 0.12');
  assert.equal(withError(-0.36, 0.0099, true), '\u22120.3600 ± 0.0099');
  assert.equal(withError(1234.5, 24.3), '1235 ± 24');
});

test('a share may be less than nothing', () => {
  assert.equal(percent(-0.1058), '\u221211 %');
  assert.equal(percent(0.0797), '8.0 %');
});

test('the address tells check and pair, and nothing else of it is believed', () => {
  assert.deepEqual(placeOf('#check=2&pair=7'), { check: 1, pair: 7 });
  assert.deepEqual(placeOf('#pair=-1&check=x'), { check: 0, pair: null });
  assert.equal(hashOf({ check: 0, pair: 7 }), '#pair=7');
  assert.equal(hashOf({ check: 1, pair: null }), '#check=2');
});

test('rules of limits', () => {
  const cases: [string, string | undefined, number, boolean | undefined][] = [
    ['dy_means<=0.1', 'dy_means', 0.1, false],
    ['|tri_dis[0]|<=0.5', 'tri_dis[0]', -0.6, true],
    ['|tri_dis| < 0.5', 'tri_dis', -0.5, true],
    ['summary.refined.dy_means.mean<=0.02', 'dy_means', 0.03, true],
    ['finished>=3', 'finished', 2, true],
    ['nonsense', undefined, 0, undefined],
  ];
  for (const [text, figure, value, over] of cases) {
    const rule = ruleOf(text);
    assert.equal(rule?.figure, figure, text);
    if (rule) assert.equal(exceeds(rule, value), over, text);
  }
});

test('a limit on a list is one on each of its entries', () => {
  const limits = ['|tri_dis|<=0.5', 'refined.tri_dis[1]<=1', 'tri_dis[0]<=2'].map((text) => ({
    text,
    value: null,
    holds: true,
    pair: null,
    why: '',
  }));
  assert.deepEqual(
    rulesOn(limits, 'tri_dis[1]', 'library').map(({ bound }) => bound),
    [0.5],
  );
  assert.deepEqual(
    rulesOn(limits, 'tri_dis[1]', 'refined').map(({ bound }) => bound),
    [1],
  );
});

test('entries of lists are figures of their own', () => {
  const figures = { dy_means: 1, tri_dis: [2, null] };
  assert.deepEqual(flattened(figures), [
    { name: 'dy_means', value: 1 },
    { name: 'tri_dis[0]', value: 2 },
    { name: 'tri_dis[1]', value: null },
  ]);
  const pair = { figures } as unknown as CheckPair;
  assert.equal(valueOf(pair, 'library', 'tri_dis[0]'), 2);
  assert.equal(valueOf(pair, 'library', 'tri_dis[5]'), null);
  assert.equal(valueOf(pair, 'refined', 'dy_means'), null);
});

test('a name cannot become a formula of a spreadsheet', () => {
  assert.equal(csvField('=1+1'), "'=1+1");
  assert.equal(csvField('-0.5'), '-0.5');
  assert.equal(csvField('a,"b"'), '"a,""b"""');
});

test('figures have a heading and a meaning in a few words', () => {
  const text = 'A figure, in pixels: mean absolute row difference. 0 is perfect. The limit judges it.';
  const known = new Explanations({ dy_means: { title: 'dy_means', text, unit: 'pixels' } });
  assert.equal(known.title('dy_means'), 'Mean row difference');
  assert.equal(known.meaning('dy_means'), 'Mean absolute row difference');
  assert.equal(known.title('tri_dis[0]'), 'Distance error, chosen dots, 1 to 2');
  assert.equal(known.title('id_dis[3]'), 'Distance error of id pairs, 3');
  assert.equal(known.title('frameValues[1]'), 'Distance error of frame pairs, 1');
  assert.equal(known.meaning('unheard_of'), 'unheard_of');
});

test('a refined figure is called so', () => {
  const known = new Explanations({});
  assert.equal(known.title('refined.tri_dis[0]'), 'Distance error, chosen dots, 1 to 2, refined');
});

test('an interval shows where its ends differ', () => {
  assert.equal(between(567.8372253, 567.8438789), '567.8372 to 567.8439');
  assert.equal(between(-0.05, 0.15), '\u22120.05 to 0.15');
  assert.equal(between(2, 2), '2 to 2');
  assert.equal(between(100, 300), '100 to 300');
});

test('an address that asks for what is not there is told so', () => {
  const two = [{ index: 0 }, { index: 1 }];
  assert.equal(missingWords({ check: 0, pair: 1 }, two, 1), '');
  assert.equal(missingWords({ check: 0, pair: null }, [], 1), '');
  assert.equal(
    missingWords({ check: 0, pair: 7 }, two, 1),
    'The address asks for pair 7; this check has pairs 0 to 1.',
  );
  assert.equal(
    missingWords({ check: 0, pair: 7 }, [{ index: 4 }], 1),
    'The address asks for pair 7; this check has pair 4 alone.',
  );
  assert.equal(missingWords({ check: 0, pair: 7 }, [], 1), 'The address asks for pair 7; this check has no pair.');
  assert.equal(missingWords({ check: 2, pair: 0 }, two, 2), 'The address asks for check 3; there are 2 on this page.');
  assert.equal(missingWords({ check: 1, pair: 0 }, two, 1), 'The address asks for check 2; there is one on this page.');
});
