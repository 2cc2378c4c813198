// Readable for everybody: what axe knows, in both themes, and a sentence with numbers for each plot.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { goTo, within } from './support/browser.mjs';
import { violations } from './support/axe.mjs';
import { pageFile, withCopy } from './support/pages.mjs';

// The theme changes nothing but colours.
const themes = { light: {}, dark: { runOnly: ['color-contrast'] } };
const looks = {
  misaligned: ['#pair=0', '#pair=2'],
  two: ['#check=2&pair=1'],
  nulls: ['#pair=0'],
  empty: [''],
  unseen: [''],
  broken: ['#pair=0'],
  colour: ['', '#pair=7'],
};

for (const [theme, rules] of Object.entries(themes)) {
  for (const [name, hashes] of Object.entries(looks)) {
    test(`axe finds nothing in '${name}', ${theme}`, async () => {
      await within(pageFile(name), { theme, hash: hashes[0] }, async (page) => {
        assert.deepEqual(await violations(page, rules), []);
        for (const hash of hashes.slice(1)) {
          await goTo(page, hash);
          assert.deepEqual(await violations(page, rules), []);
        }
      });
    });
  }
}

test('axe finds nothing in what stands without JavaScript', async () => {
  // axe itself needs scripts, so the page's own are taken out, and the style is told that there are none.
  const still = (text) =>
    text.replace(/<script(?! type)[^]*<\/script>/, '').replace('(scripting:enabled)', '(scripting:none)');
  await withCopy('misaligned', still, async (file) => {
    await within(file, { drawn: false }, async (page) => assert.deepEqual(await violations(page), []));
  });
});

test('Each plot has a name and a sentence', async () => {
  await within(pageFile('misaligned'), { hash: '#pair=0' }, async (page) => {
    const plots = await page.$$eval('figure.plot', (nodes) =>
      nodes.map((node) => {
        const area = node.querySelector('.plot-area');
        const ids = (area.getAttribute('aria-labelledby') ?? '').split(' ');
        const text = ids.map((id) => document.getElementById(id)?.textContent ?? '').join(': ');
        return { text, role: area.getAttribute('role') };
      }),
    );
    assert.ok(plots.length >= 10, `${plots.length} plots`);
    for (const { text, role } of plots) {
      assert.match(role, /^(img|group)$/);
      assert.match(text, /\S.*: .*\d/s, 'a title and a sentence with its numbers');
    }
  });
});

for (const name of ['misaligned', 'two']) {
  test(`No two plots of '${name}' have one name`, async () => {
    await within(pageFile(name), { hash: '#pair=0' }, async (page) => {
      const names = await page.$$eval('figure.plot h3', (nodes) => nodes.map((node) => node.textContent));
      assert.deepEqual(
        names.filter((each, place) => names.indexOf(each) !== place),
        [],
      );
    });
  });
}

test('The two themes are two', async () => {
  const background = (page) => page.evaluate(() => getComputedStyle(document.documentElement).backgroundColor);
  const light = await within(pageFile('good'), { theme: 'light' }, background);
  const dark = await within(pageFile('good'), { theme: 'dark' }, background);
  assert.notEqual(light, dark);
});
