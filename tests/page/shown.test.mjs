// Intervals, errors, differences and verdicts that stand beside figures are those of the documents, of every pair.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, within } from './support/browser.mjs';
import { roundedNumbers } from './support/expected.mjs';
import { checkDocument, compared, pageData, pageFile, withData } from './support/pages.mjs';

const told = (page, selector) =>
  page.$$eval(selector, (nodes) =>
    nodes.map((node) => ({
      ...node.dataset,
      text: node.textContent.trim(),
      small: node.querySelector('small')?.textContent,
    })),
  );

/** What is wrong with one of them: an attribute, or what its text shows. */
function wrong(what, found, wanted, numbers, text = found.text) {
  const attributes = Object.entries(wanted).flatMap(([name, value]) =>
    found[name] === String(value) ? [] : [`${what}: ${name} is ${value}, the page has ${found[name]}`],
  );
  const only = numbers.filter((value) => value !== null && value !== undefined);
  const shown = only.length === 0 ? '' : roundedNumbers(only)(text.replace(/^\+/, ''));
  return shown === '' ? attributes : [...attributes, `${what} ${shown}`];
}

/** Errors and intervals of all figures of a pair. */
function wrongOfPair(pair, shown) {
  return shown.flatMap((found) => {
    const own = found.source === 'refined' ? pair.refined.uncertainty : pair.uncertainty;
    const { sd, low95, high95 } = own?.[found.certain] ?? {};
    const what = `${found.certain} of pair ${pair.index}`;
    return 'sd' in found
      ? wrong(what, found, { sd }, [sd])
      : wrong(what, found, { low: low95, high: high95 }, [low95, high95]);
  });
}

async function wrongOfPairs(file, document) {
  const faults = [];
  await within(file, {}, async (page) => {
    for (const pair of document.pairs.filter(({ state }) => state === 'finished')) {
      await goTo(page, `#pair=${pair.index}`);
      const shown = await told(page, '[data-certain]');
      const known = [pair.uncertainty, pair.refined?.uncertainty].flatMap((each) => Object.values(each ?? {}));
      const numbers = known.flatMap(({ sd, low95 }) => [sd, low95]).filter((value) => value !== null);
      if (shown.length < numbers.length)
        faults.push(`pair ${pair.index}: ${shown.length} of ${numbers.length} are shown`);
      faults.push(...wrongOfPair(pair, shown));
    }
  });
  return faults;
}

for (const name of ['good', 'misaligned', 'nulls', 'fisheye']) {
  test(`Errors and intervals of every pair of '${name}' are those of its document`, async () => {
    assert.deepEqual(await wrongOfPairs(pageFile(name), checkDocument(name)), []);
  });
}

const summaryOf = ({ summary }, figure) =>
  figure.startsWith('refined.') ? summary.refined?.figures[figure.slice(8)] : summary.figures[figure];

async function wrongOfComparison(file, documents) {
  return within(file, {}, async (page) => {
    const means = (await told(page, '[data-compared]')).flatMap((found) => {
      const { mean, low95, high95 } = summaryOf(documents[found.check - 1], found.compared);
      const what = `${found.compared} of check ${found.check}`;
      const ends = found.small ? wrong(what, found, {}, [low95, high95], found.small) : [];
      const text = found.text.slice(0, found.text.length - (found.small?.length ?? 0));
      return [...wrong(what, found, { value: mean, low: low95, high: high95 }, [mean], text), ...ends];
    });
    const differences = (await told(page, '[data-differs]')).flatMap((found) => {
      const [first, other] = [documents[0], documents[found.check - 1]].map(
        (each) => summaryOf(each, found.differs).mean,
      );
      const what = `difference of ${found.differs} of check ${found.check}`;
      const sd = found.sd === 'null' || Number(found.sd) === 0 ? null : Number(found.sd);
      const near = Math.abs(Number(found.value) - (other - first)) <= 1e-12 * Math.max(1, Math.abs(other));
      return [
        ...(near ? [] : [`${what} is ${other - first}, the page has ${found.value}`]),
        ...wrong(what, found, {}, [other - first, sd], found.small),
      ];
    });
    const limits = (await told(page, '[data-judged]')).flatMap((found) => {
      const limit = documents[found.check - 1].limits.find(({ text }) => text === found.judged);
      const wanted = { value: limit?.value ?? null, holds: limit?.holds ?? null };
      return wrong(`${found.judged} of check ${found.check}`, found, wanted, [wanted.value]);
    });
    return [...means, ...differences, ...limits];
  });
}

for (const [name, documents] of Object.entries(compared)) {
  test(`Means, intervals, differences and limits of '${name}' are shown as the documents have them`, async () => {
    assert.deepEqual(await wrongOfComparison(pageFile(name), documents.map(checkDocument)), []);
  });
}

const shifted = (list) => list.map((value) => value && value * (1 + 5e-7));
const faults = {
  means: (found) => found.figures.forEach((each) => (each.mean = shifted(each.mean))),
  intervals: (found) => found.figures.forEach((each) => (each.low95 = shifted(each.low95))),
  differences: (found) => found.figures.forEach((each) => each.difference.forEach((one) => (one.value *= 1 + 5e-7))),
  limits: (found) => found.limits.forEach((each) => (each.values = shifted(each.values))),
  verdicts: (found) =>
    found.limits.forEach((each) => (each.holds = each.holds.map((value) => value !== null && !value))),
};
for (const [what, put] of Object.entries(faults)) {
  test(`Wrong ${what} of a comparison are found`, async () => {
    const data = pageData('two');
    put(data.comparison);
    const found = await withData('two', data, (file) => wrongOfComparison(file, compared.two.map(checkDocument)));
    assert.notDeepEqual(found, []);
  });
}

test('Wrong intervals of a pair that is not the first are found', async () => {
  const data = pageData('misaligned');
  data.checks[0].document.pairs.at(-1).uncertainty.tri_rms.high95 *= 1 + 5e-7;
  const found = await withData('misaligned', data, (file) => wrongOfPairs(file, checkDocument('misaligned')));
  assert.equal(found.length, 1, found.join('\n'));
});

test('The dots in each cell of both pictures stand in a table, for who has no mouse', async () => {
  const { coverage } = pageData('misaligned').checks[0];
  await within(pageFile('misaligned'), {}, async (page) => {
    for (const side of ['left', 'right']) {
      await page.focus(`[data-cells=${side}] summary`);
      await page.keyboard.press('Enter');
      const shown = await page.$$eval(`[data-cells=${side}] tbody td`, (nodes) =>
        nodes.map((node) => (node.checkVisibility() ? Number(node.textContent) : null)),
      );
      assert.deepEqual(shown, coverage[side].dots);
    }
  });
});
