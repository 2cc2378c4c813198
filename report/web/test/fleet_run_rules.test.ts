import assert from 'node:assert/strict';
import { test } from 'node:test';
import { brokenRules, ruleTexts } from '../src/fleet/statistics/run_rules';

const broken = (points: number[]) => brokenRules(points, 0, 1).map(({ rule, from, to }) => `${rule}: ${from} to ${to}`);

const cases: [string, number[], string[]][] = [
  ['quiet', [0.5, -0.5, 1.2, 0.1, -1.4, 0.4], []],
  ['three sigma itself is none beyond', [3, -3, 0], []],
  ['beyond three sigma', [0, 3.1, 0], ['1: 1 to 1']],
  ['below three sigma', [0, 0.1, -3.1], ['1: 2 to 2']],
  ['eight on one side are not enough', [0.5, 0.2, 0.5, 0.2, 0.5, 0.2, 0.5, 0.2, -0.1], []],
  ['nine on one side', [-0.1, 0.5, 0.2, 0.5, 0.2, 0.5, 0.2, 0.5, 0.2, 0.5], ['2: 1 to 9']],
  ['ten on one side are one break', [0.5, 0.2, 0.5, 0.2, 0.5, 0.2, 0.5, 0.2, 0.5, 0.3], ['2: 0 to 9']],
  ['six rising', [-1.4, -0.9, -0.3, 0.2, 0.6, 1.3, 0.2], ['3: 0 to 5']],
  ['six falling', [1.4, 0.9, 0.3, -0.2, -0.6, -1.3], ['3: 0 to 5']],
  ['five rising are not enough', [-0.9, -0.3, 0.2, 0.6, 1.3, 0.2], []],
  ['fourteen in turn', [1.5, -1.5, 0.3, -1.5, 1.5, -0.3, 1.5, -1.5, 0.3, -1.5, 1.5, -0.3, 1.5, -1.5], ['4: 0 to 13']],
  ['two of three beyond two sigma', [2.1, 0, 2.2, 0], ['5: 0 to 2']],
  ['on two sides it is none', [2.1, 0, -2.2, 0], []],
  ['four of five beyond one sigma', [1.1, 1.2, -0.5, 1.3, 1.4, 0], ['6: 0 to 4']],
  [
    'fifteen within one sigma',
    [0.1, 0.4, -0.2, -0.3, 0.2, 0.3, -0.1, -0.4, 0.2, 0.1, -0.3, -0.2, 0.4, 0.2, -0.1],
    ['7: 0 to 14'],
  ],
  ['eight beyond one sigma on either side', [1.1, -1.2, -1.3, 1.4, 1.5, -1.1, -1.2, 1.3], ['8: 0 to 7']],
];

for (const [name, points, wanted] of cases) {
  test(`run rules: ${name}`, () => assert.deepEqual(broken(points), wanted));
}

test('run rules know centre and sigma, and have a text each', () => {
  assert.deepEqual(brokenRules([10, 16.1, 10], 10, 2), [{ rule: 1, from: 1, to: 1 }]);
  assert.deepEqual(brokenRules([1, 9], 1, 0), []);
  assert.deepEqual(Object.keys(ruleTexts), ['1', '2', '3', '4', '5', '6', '7', '8']);
});
