// Every number of the fleet's page is what the single sets say.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, within } from './support/browser.mjs';
import { setsOf } from './support/fleet_pages.mjs';
import { fleetTruth, toldNumbers, wrongNumbers } from './support/fleet_truth.mjs';
import { checkDocument, pageFile, withCopy } from './support/pages.mjs';

const sets = setsOf('fleet_line');
const fleet = checkDocument('fleet_line');

/** Names of the truth that have to be seen. */
const required = (truth) =>
  [...truth.keys()].filter((name) => !/^(passed|failed|unjudged) .|^cp\.|^previous\.yield\./.test(name));

test('Yields, intervals, means and indices are those of the sets', async () => {
  const truth = fleetTruth(fleet, sets);
  await within(pageFile('fleet_line'), {}, async (page) => {
    const told = await toldNumbers(page);
    assert.deepEqual(wrongNumbers(truth, told), []);
    const there = new Set(told.map(({ name }) => name));
    assert.deepEqual(
      required(truth).filter((name) => !there.has(name) && !name.startsWith('worst.')),
      [],
    );
  });
});

const filters = [
  ['#by.station=3', ({ values }) => values[0] === '3'],
  ['#by.model=K2&by.shift=late', ({ values }) => values[1] === 'K2' && values[2] === 'late'],
];
for (const [hash, keeps] of filters) {
  test(`They are those of the sets that ${hash} leaves`, async () => {
    const truth = fleetTruth(fleet, sets.filter(keeps));
    await within(pageFile('fleet_line'), {}, async (page) => {
      await goTo(page, hash);
      const told = await toldNumbers(page);
      assert.deepEqual(wrongNumbers(truth, told), []);
      assert.equal(told.find(({ name }) => name === 'sets ').value, sets.filter(keeps).length);
    });
  });
}

test('100,000 sets are told right, too', async () => {
  const truth = fleetTruth(checkDocument('fleet_large'), setsOf('fleet_large'));
  await within(pageFile('fleet_large'), {}, async (page) => {
    assert.deepEqual(wrongNumbers(truth, await toldNumbers(page)), []);
  });
});

test('One set has a yield and no index', async () => {
  await within(pageFile('fleet_one'), {}, async (page) => {
    const told = await toldNumbers(page);
    assert.equal(told.find(({ name }) => name === 'sets ').value, 1);
    assert.deepEqual(
      told.filter(({ name }) => name.startsWith('cp')),
      [],
    );
  });
});

test('An empty store is told as such', async () => {
  await within(pageFile('fleet_empty'), {}, async (page) => {
    assert.match(await page.evaluate(() => document.body.innerText), /The store is empty/);
  });
});

test('A count that is off by one is found', async () => {
  const truth = fleetTruth(fleet, sets);
  const oneMore = (text) => text.replace(/"passed":\[(\d+)/, (_, count) => `"passed":[${Number(count) + 1}`);
  await withCopy('fleet_line', oneMore, (file) =>
    within(file, {}, async (page) => {
      const wrong = wrongNumbers(truth, await toldNumbers(page)).join('\n');
      assert.match(wrong, /^sets {2}is 3000, the page has 3001$/m);
      assert.match(wrong, /^yield {2}is /m);
    }),
  );
});

test('A mean that is off in the fifth digit is found', async () => {
  const truth = fleetTruth(fleet, sets);
  const shifted = (text) =>
    text.replace(/"mean":\[[^\]]*\]/, (list) =>
      list.replace(/\d+\.\d+/g, (number) => String(Number(number) * 1.00005)),
    );
  await withCopy('fleet_line', shifted, (file) =>
    within(file, {}, async (page) => {
      assert.match(wrongNumbers(truth, await toldNumbers(page)).join('\n'), /^mean dy_max\.max is /m);
    }),
  );
});
