// The pair that is looked at stands in the address, so a link leads to it and the back button to the one before.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { complaints, goTo, settled, within } from './support/browser.mjs';
import { checkDocument, pageFile } from './support/pages.mjs';

const shownPair = (page) => page.$eval('#pair h2', (node) => node.textContent.trim());

test('A link leads to its pair', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=3' }, async (page) => {
    assert.equal(await shownPair(page), 'Pair 3');
    const top = () => page.$eval('#pair h2', (node) => node.getBoundingClientRect().top);
    const before = await top();
    assert.ok(before >= 0 && before < 200, `the pair begins at ${before} of the window`);
    await new Promise((done) => setTimeout(done, 600));
    assert.equal(await top(), before, 'it moves no more');
  });
});

test('Back leads to the pair before', async () => {
  await within(pageFile('misaligned'), {}, async (page) => {
    await goTo(page, '#pair=0');
    await goTo(page, '#pair=3');
    await page.goBack();
    await settled(page);
    assert.equal(await shownPair(page), 'Pair 0');
    await page.goForward();
    await settled(page);
    assert.equal(await shownPair(page), 'Pair 3');
  });
});

test('The page begins with the worst pair', async () => {
  await within(pageFile('misaligned'), {}, async (page) => {
    const { worst_pair: worst } = checkDocument('misaligned').summary.figures.dy_means;
    assert.equal(await shownPair(page), `Pair ${worst}`);
  });
});

for (const hash of ['#pair=99', '#pair=x', '#check=9&pair=0', '#%00', '#pair=-1', '#<img src=x>']) {
  test(`The address ${hash} is no failure`, async () => {
    await within(pageFile('misaligned'), { hash }, async (page, seen) => {
      assert.match(await shownPair(page), /^Pair \d$/);
      assert.deepEqual(complaints(seen), []);
    });
  });
}

for (const [hash, words] of [
  ['#pair=99', 'The address asks for pair 99; this check has pairs 0 to 5.'],
  ['#check=9&pair=0', 'The address asks for check 9; there is one on this page.'],
]) {
  test(`The address ${hash} says that there is none, until another is chosen`, async () => {
    await within(pageFile('misaligned'), { hash }, async (page) => {
      const notice = () => page.$eval('.notice', (node) => node.textContent);
      assert.equal(await notice(), words);
      assert.ok(await page.$eval('.notice', (node) => node.getBoundingClientRect().top < innerHeight), 'it is seen');
      await goTo(page, '#pair=1');
      assert.equal(await notice(), '');
    });
  });
}

test('A pair of another check has its address', async () => {
  await within(pageFile('two'), { hash: '#check=2&pair=1' }, async (page) => {
    assert.equal(await shownPair(page), 'Pair 1');
    const checks = await page.$$eval('#pair [data-figure]', (nodes) => nodes.map((node) => node.dataset.check));
    assert.deepEqual([...new Set(checks)], ['2']);
  });
});
