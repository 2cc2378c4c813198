// The site of the documents opens from disk, asks nobody for anything, and is searched without a server.
import assert from 'node:assert/strict';
import { readdirSync } from 'node:fs';
import path from 'node:path';
import { test } from 'node:test';
import { complaints, within } from './support/browser.mjs';

const site = path.join(process.env.PAGE_TESTS, 'site');
const pages = readdirSync(site, { recursive: true }).filter((name) =>
  /^(docs\/guide\/.*|index|api\/check_8h)\.html$/.test(name),
);

for (const name of pages) {
  test(`The site's ${name} is quiet and whole`, async () => {
    await within(path.join(site, name), { drawn: false }, async (page, seen) => {
      assert.deepEqual(complaints(seen), []);
      const broken = await page.$$eval('img', (images) =>
        images.filter((image) => !image.naturalWidth).map((image) => image.src),
      );
      assert.deepEqual(broken, []);
    });
  });
}

test('The search finds a section, its words in any order, and an interface', async () => {
  for (const [words, wanted] of [
    ['coverage corners', 'docs/guide/board.html'],
    ['corners COVERAGE', 'docs/guide/board.html'],
    ['InputError', 'api/classpolarline_1_1InputError.html'],
  ]) {
    await within(path.join(site, 'search.html'), { drawn: false }, async (page, seen) => {
      await page.type('#mkdocs-search-query', words);
      const found = await page.$$eval('#mkdocs-search-results a', (links) =>
        links.map((link) => link.getAttribute('href')),
      );
      assert.ok(
        found.some((link) => link.startsWith(wanted)),
        `${words}: ${found.join(', ')}`,
      );
      assert.deepEqual(complaints(seen), []);
    });
  }
});

test('The search takes its words from the address, finds nothing for none, and takes text for text', async () => {
  await within(path.join(site, 'search.html'), { drawn: false, hash: '?q=baseline' }, async (page) => {
    assert.notEqual(await page.$$eval('#mkdocs-search-results article', (hits) => hits.length), 0);
    await page.$eval('#mkdocs-search-query', (input) => input.select());
    await page.type('#mkdocs-search-query', 'qqqq <img>');
    assert.equal(
      await page.$$eval('#mkdocs-search-results article, #mkdocs-search-results img', (hits) => hits.length),
      0,
    );
  });
});
