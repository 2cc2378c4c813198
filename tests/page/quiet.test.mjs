// No page writes to the console, fails, asks anybody for anything, or tells where it was made.
import assert from 'node:assert/strict';
import { statSync } from 'node:fs';
import path from 'node:path';
import { test } from 'node:test';
import { complaints, goTo, within } from './support/browser.mjs';
import { checkDocument, pageFile, pageText, root, single } from './support/pages.mjs';

for (const name of [...single, 'hostile', 'two', 'eight']) {
  test(`The page of '${name}' is quiet through all its pairs`, async () => {
    const pairs = ['two', 'eight'].includes(name) ? [0, 1] : [0, 1, 2, 3];
    await within(pageFile(name), {}, async (page, seen) => {
      for (const pair of pairs) await goTo(page, `#pair=${pair}`);
      assert.deepEqual(complaints(seen), []);
    });
  });
}

test('A page tells no folder unless it was asked to', () => {
  const folder = path.dirname(pageFile('good'));
  for (const name of [...single, 'two', 'eight', 'many']) assert.ok(!pageText(name).includes(folder), name);
  assert.ok(pageText('with_paths').includes(checkDocument('good').set.folder));
  assert.ok(path.isAbsolute(checkDocument('good').set.folder));
});

test('The template has at most 350 kB', () => {
  assert.ok(statSync(path.join(root, 'report/page.html')).size <= 350_000);
});

test('A page allows no request and no script but its own', () => {
  const policy = /http-equiv="Content-Security-Policy"\s+content="([^"]+)"/.exec(pageText('good'))?.[1] ?? '';
  const rules = new Map(policy.split(';').map((rule) => [rule.trim().split(' ')[0], rule.trim().split(' ').slice(1)]));
  assert.deepEqual(rules.get('default-src'), ["'none'"]);
  assert.deepEqual(rules.get('img-src'), ['data:']);
  assert.equal(rules.get('script-src')?.length, 1);
  assert.match(rules.get('script-src')[0], /^'sha256-/);
});
