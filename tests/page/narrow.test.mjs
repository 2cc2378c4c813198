// A telephone, a doubled page, and who wants no motion.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, settled, within } from './support/browser.mjs';
import { cutWriting, stickingOut } from './support/layout.mjs';
import { pageFile } from './support/pages.mjs';

const sizes = [
  ['360 pixels', { width: 360, height: 740 }],
  ['1280 pixels at 200 %', { width: 640, height: 450, scale: 2 }],
];
for (const [size, options] of sizes) {
  for (const name of ['misaligned', 'eight', 'empty', 'hostile']) {
    test(`'${name}' fits into ${size}`, async () => {
      await within(pageFile(name), options, async (page) => {
        for (const hash of ['', '#pair=0', '#pair=2']) {
          if (hash) await goTo(page, hash);
          assert.deepEqual(await stickingOut(page), { scroll: 0, out: [] }, hash);
        }
      });
    });
  }
}

/** All of it, also what is folded away. */
async function unfolded(page, paper) {
  await page.evaluate((forPaper) => {
    for (const details of document.querySelectorAll('details')) details.open = true;
    if (forPaper) dispatchEvent(new Event('beforeprint'));
  }, paper);
  await settled(page);
}

for (const name of ['good', 'limits', 'nulls', 'eight', 'sizes', 'fleet_line', 'fleet_few']) {
  test(`No drawing of '${name}' cuts its writing, at 360 and 1280 pixels and on paper`, async () => {
    for (const [where, options] of [
      ['360 pixels', { width: 360, height: 740 }],
      ['1280 pixels', {}],
      ['paper', {}],
    ]) {
      await within(pageFile(name), options, async (page) => {
        await unfolded(page, where === 'paper');
        assert.ok((await page.$$('svg text')).length > 10);
        assert.deepEqual(await cutWriting(page), [], where);
      });
    }
  });
}

test('Without JavaScript it fits into 360 pixels, too', async () => {
  await within(pageFile('misaligned'), { width: 360, height: 740, script: false }, async (page) => {
    assert.deepEqual(await stickingOut(page), { scroll: 0, out: [] });
  });
});

test('Nothing moves where motion is reduced', async () => {
  await within(pageFile('misaligned'), { calm: true }, async (page) => {
    await page.evaluate(() => (location.hash = '#pair=0'));
    const moving = await page.evaluate(() => {
      const times = (text) => text.split(',').some((time) => parseFloat(time) > 0.001);
      const styles = [...document.querySelectorAll('*')].map((node) => getComputedStyle(node));
      return {
        animations: document.getAnimations().length,
        transitions: styles.filter((style) => times(style.transitionDuration)).length,
        scrolls: styles.filter((style) => style.scrollBehavior === 'smooth').length,
      };
    });
    assert.deepEqual(moving, { animations: 0, transitions: 0, scrolls: 0 });
  });
});
