// The charts of one station and model, what they say in words, and what the page says first.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, within } from './support/browser.mjs';
import { fleetOf, madeSets } from './support/fleet_made.mjs';
import { toldNumbers } from './support/fleet_truth.mjs';
import { checkDocument, pageData, pageFile, withData } from './support/pages.mjs';

const fleet = checkDocument('fleet_line');
const near = (found, wanted) =>
  assert.ok(Math.abs(found - wanted) <= 1e-9 * Math.max(1, Math.abs(wanted)), `${found}, ${wanted}`);

/** Points of a station and model, merged by time. */
function pointsOf(station, model, measure) {
  const groups = fleet.groups.flatMap((group, index) => (group[0] === station && group[1] === model ? [index] : []));
  return fleet.courses
    .filter(({ group }) => groups.includes(group))
    .flatMap(({ minute, values }) => minute.map((at, k) => ({ at, value: values[measure][k] })))
    .sort((a, b) => a.at - b.at)
    .map(({ value }) => value);
}

const meanOf = (values) => values.reduce((sum, value) => sum + value, 0) / values.length;
const rangesOf = (values) => values.slice(1).map((value, k) => Math.abs(value - values[k]));

/** Page's sums, written down once more from the book: C+ = max(0, x - (target + k sigma) + C+). */
function sums(values, target, sigma, k) {
  let [up, down] = [0, 0];
  return values.map((value) => {
    up = Math.max(0, value - (target + k * sigma) + up);
    down = Math.max(0, target - k * sigma - value + down);
    return [up / sigma, down / sigma];
  });
}

test('Points, ranges and sums of a station that does not drift are those of the data', async () => {
  const values = pointsOf(0, 1, 2);
  const ranges = rangesOf(values);
  const first = values.slice(0, Math.min(40, Math.floor(values.length / 3)));
  const expected = sums(values, meanOf(first), meanOf(ranges) / 1.128, 0.5 + 2.5 / Math.sqrt(first.length));
  assert.ok(Math.max(...expected.flat()) < 8, 'the station is to be a quiet one');
  await within(pageFile('fleet_line'), { hash: '#at=0.1&figure=2' }, async (page) => {
    const told = await toldNumbers(page);
    const column = (name) => told.filter((each) => each.name.startsWith(`${name} `)).map(({ value }) => value);
    assert.deepEqual(column('point'), values);
    column('range')
      .slice(1)
      .forEach((range, k) => near(range, ranges[k]));
    column('sum.up').forEach((sum, k) => near(sum, expected[k][0]));
    column('sum.down').forEach((sum, k) => near(sum, expected[k][1]));
    const text = await page.$eval('#charts', (node) => node.innerText.replace(/\u2212/g, '-'));
    const [, low, high] = /limits ([\d.]+) to ([\d.]+) board units/.exec(text);
    const mean = meanOf(values);
    assert.ok(Math.abs(low - (mean - 2.66 * meanOf(ranges))) < 0.06, `${low}`);
    assert.ok(Math.abs(high - (mean + 2.66 * meanOf(ranges))) < 0.06, `${high}`);
    const [, limit] = /Mean range [\d.]+ board units, limit ([\d.]+)/.exec(text);
    assert.ok(Math.abs(limit - 3.267 * meanOf(ranges)) < 0.006, limit);
    assert.match(text, /no drift; no sum comes beyond 8 sigma/);
  });
});

test('What went wrong is said first, with since when: one day of a cause and of the figure that it changed', async () => {
  // Station 3 looks down by 0.05 degrees in the last 5.5 of forty days from 14 October on: since noon of
  // 17 November.
  await within(pageFile('fleet_line'), {}, async (page) => {
    const found = await page.$$eval('[data-finding]', (nodes) => nodes.map((node) => node.innerText));
    const third = found.filter((text) => text.startsWith('Station 3'));
    assert.equal(third.length, 2);
    for (const text of third) {
      assert.match(text, /The right cameras look down by 0\.0(49|50|51)\d*° ± 0\.00\d+° since Tue 17 Nov 2026/);
      assert.match(
        text,
        /Largest row difference, largest of the set: up by 0\.0[678]\d+ px to 0\.2[678]\d+ px since Tue 17 Nov/,
      );
    }
    const top = await page.$eval('#findings', (node) => node.getBoundingClientRect().top);
    assert.ok(top < 500, 'seen without scrolling');
    const causes = await page.$$eval('#causes tbody tr', (rows) =>
      rows.map((row) => row.innerText.replace(/\s+/g, ' ')),
    );
    assert.equal(causes.filter((line) => /^Station 3, (K2|R7) .*rotation_x.*Tue 17 Nov 2026 now/.test(line)).length, 2);
  });
});

for (const hours of [4, 12, 20]) {
  test(`A change ${hours} hours before midnight is told since one day on each card, and that day`, async () => {
    for (const seed of [1, 2, 3, 4]) {
      // In thirty days from 5 January on: on 27 January.
      const line = { days: 30, stations: 4, begin: '2026-01-05', offDays: 7 + hours / 24, seed };
      const made = fleetOf(madeSets({ count: 10_000, ...line }));
      await withData('fleet_line', { ...pageData('fleet_line'), fleet: made }, (file) =>
        within(file, {}, (page) => cardsOf(page, seed)),
      );
    }
  });
}

/** Both cards of station 3. */
async function cardsOf(page, seed) {
  const found = await page.$$eval('[data-finding]', (nodes) => nodes.map((node) => node.innerText));
  const third = found.filter((text) => text.startsWith('Station 3'));
  assert.equal(third.length, 2);
  for (const text of third) {
    const since = [...text.matchAll(/since \w+ (\d+ \w+)/g)].map(([, day]) => day);
    assert.ok(since.length >= 2, text);
    assert.deepEqual([...new Set(since)], ['27 Jan'], `${seed}: ${text}`);
  }
}

test('Figures without a limit are told to have changed, but not as a fault', async () => {
  await within(pageFile('fleet_unlimited'), {}, async (page) => {
    const changes = await page.$$eval('#unjudged-changes li', (nodes) => nodes.map((node) => node.textContent));
    assert.ok(
      changes.some((text) => /^Station 3, .*row difference.*: up by .* since /.test(text)),
      changes.join('\n'),
    );
    const findings = await page.$$eval('[data-finding]', (nodes) => nodes.map((node) => node.innerText).join('\n'));
    assert.match(findings, /Station 3/);
    assert.doesNotMatch(findings, /(up|down) by .* to .* since/);
    const marked = await page.$$eval('[data-state] .icon', (nodes) => nodes.length);
    assert.equal(marked, 0);
  });
  await within(pageFile('fleet_line'), {}, async (page) => {
    assert.equal(await page.$('#unjudged-changes'), null);
    assert.ok((await page.$$eval('[data-state] .icon', (nodes) => nodes.length)) > 0);
  });
});

test('Rules that are broken are named with their place', async () => {
  await within(pageFile('fleet_line'), { hash: '#at=2.0&figure=0' }, async (page) => {
    const text = await page.$eval('#charts', (node) => node.innerText);
    assert.match(text, /rule 1, a point beyond three sigma \(/);
    assert.match(text, /rule 5, two of three beyond two sigma on one side \(.*1[5-9] Nov/);
    const state = await page.$eval('[data-state="2.0 0"]', (node) => node.innerText.trim());
    assert.match(state, /^up since 17 Nov$/);
  });
});

test('Of few points the page says what it knows, and calls nothing steady', async () => {
  const few = checkDocument('fleet_few');
  assert.ok(few.courses.every(({ minute }) => minute.length < 24));
  await within(pageFile('fleet_few'), {}, async (page) => {
    const states = await page.$$eval('[data-state]', (nodes) => nodes.map((node) => node.innerText.trim()));
    assert.ok(states.length > 20);
    for (const state of states) assert.match(state, /^(\d+ points, too few|rules? [1-8](, [1-8])*)$/);
    const sums = await page.$eval('#charts', (node) => node.innerText);
    assert.match(sums, /\d+ points are too few to tell a drift; 24 are needed/);
    const findings = await page.$eval('#findings', (node) => node.innerText);
    assert.doesNotMatch(findings, /Nothing is off:/);
    assert.match(findings, /fewer than 24 points of some figures: too few to tell a drift|too few to tell a drift; 24/);
  });
});

test('Choosing in the lists and following links changes charts and address', async () => {
  await within(pageFile('fleet_line'), {}, async (page) => {
    await page.select('[data-focus=measure]', '1');
    await page.waitForFunction(() => document.querySelector('#chart-title').innerText.includes('Distance error'));
    assert.match(await page.evaluate(() => location.hash), /figure=1/);
    await page.select('[data-focus=course]', '4.0');
    await page.waitForFunction(() => document.querySelector('#chart-title').innerText.startsWith('Station 5, K2'));
    await page.select('[data-key=station]', '1');
    await page.waitForFunction(() => document.querySelectorAll('#yield tbody tr').length === 2);
    assert.match(await page.evaluate(() => location.hash), /by\.station=2/);
    await goTo(page, '#');
    assert.equal(await page.$$eval('#yield tbody tr', (rows) => rows.length), 10);
  });
});
