// The fleet's page for everybody: axe, keys, telephones, paper.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { violations } from './support/axe.mjs';
import { within } from './support/browser.mjs';
import { stickingOut } from './support/layout.mjs';
import { pageFile, withCopy } from './support/pages.mjs';
import { assertWholeOnA4, printed } from './support/paper.mjs';

// The theme changes nothing but colours.
const themes = { light: {}, dark: { runOnly: ['color-contrast'] } };
for (const [theme, rules] of Object.entries(themes)) {
  for (const name of ['fleet_line', 'fleet_empty', 'fleet_hostile']) {
    test(`axe finds nothing in '${name}', ${theme}`, async () => {
      await within(pageFile(name), { theme }, async (page) => assert.deepEqual(await violations(page, rules), []));
    });
  }
}

test('axe finds nothing in what stands of a fleet without JavaScript', async () => {
  // axe itself needs scripts, so the page's own are taken out, and the style is told that there are none.
  const still = (text) =>
    text.replace(/<script(?! type)[^]*<\/script>/, '').replace('(scripting:enabled)', '(scripting:none)');
  await withCopy('fleet_line', still, async (file) => {
    await within(file, { drawn: false }, async (page) => assert.deepEqual(await violations(page), []));
  });
});

test('Each plot of a fleet has a name and a sentence with its numbers', async () => {
  await within(pageFile('fleet_line'), {}, async (page) => {
    const plots = await page.$$eval('figure.plot', (nodes) =>
      nodes.map((node) => {
        const area = node.querySelector('.plot-area');
        const ids = (area.getAttribute('aria-labelledby') ?? '').split(' ');
        const text = ids.map((id) => document.getElementById(id)?.textContent ?? '').join(': ');
        return { text, role: area.getAttribute('role') };
      }),
    );
    assert.equal(plots.length, 7);
    for (const { text, role } of plots) {
      assert.equal(role, 'img');
      assert.match(text, /\S.*: .*\d/s);
    }
  });
});

for (const name of ['fleet_line', 'fleet_empty', 'fleet_one', 'fleet_hostile']) {
  test(`'${name}' fits into 360 pixels`, async () => {
    for (const script of [true, false]) {
      await within(pageFile(name), { width: 360, height: 740, script }, async (page) => {
        assert.deepEqual(await stickingOut(page), { scroll: 0, out: [] });
      });
    }
  });
}

test('Filter, charts and tables are reached by keyboard, and the focus stays', async () => {
  await within(pageFile('fleet_line'), {}, async (page) => {
    const reached = new Set();
    for (let k = 0; k < 120; k += 1) {
      await page.keyboard.press('Tab');
      reached.add(
        await page.evaluate(() => {
          const at = document.activeElement;
          return at.dataset.key ?? at.dataset.focus ?? at.dataset.state ?? at.getAttribute('aria-label') ?? at.tagName;
        }),
      );
    }
    for (const wanted of ['station', 'model', 'shift', 'course', 'measure', '2.0 0', 'Stations and models'])
      assert.ok(reached.has(wanted), `${wanted} in ${[...reached].join(', ')}`);
    await page.focus('[data-focus=measure]');
    await page.keyboard.press('ArrowDown');
    await page.waitForFunction(() => location.hash.includes('figure='));
    await page.waitForFunction(() => document.activeElement.dataset.focus === 'measure');
  });
});

test('The head of a column sorts a table of the fleet', async () => {
  await within(pageFile('fleet_line'), {}, async (page) => {
    await page.$$eval('#yield thead button', (buttons) => buttons[1].click());
    const counts = await page.$$eval('#yield tbody tr', (rows) =>
      rows.map(({ cells }) => Number(cells[1].textContent)),
    );
    assert.deepEqual(
      counts,
      [...counts].sort((a, b) => a - b),
    );
  });
});

for (const name of ['fleet_line', 'fleet_empty']) {
  test(`'${name}' is printed on A4 without a cut plot`, async () => {
    await within(pageFile(name), {}, (page) => assertWholeOnA4(page));
  });
}

test('Paper of a fleet has nothing to press', async () => {
  await within(pageFile('fleet_line'), { theme: 'dark' }, async (page) => {
    const words = (await printed(page)).flatMap((sheet) => sheet.words.map(({ text }) => text));
    assert.ok(!words.includes('SVG') && !words.includes('CSV') && !words.includes('Shift'));
  });
});
