// Every number that a page is given, to draw or to tell, is the documents' own or worked out from it once more.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { differences } from './support/expected.mjs';
import { faults } from './support/data_faults.mjs';
import { pageOf } from './support/page_truth.mjs';
import { checkDocument, compared, pageData, single } from './support/pages.mjs';

const others = ['one_finished', 'limits', 'limits_refined', 'unlimited', 'fisheye'];

const documentsOf = (name) => (compared[name] ?? [name]).map(checkDocument);

for (const name of [...single, ...others, ...Object.keys(compared)]) {
  test(`Every number that '${name}' is given is that of its documents`, () => {
    const data = pageData(name);
    assert.deepEqual(differences(pageOf(documentsOf(name), data), data), []);
  });
}

for (const [name, only, fewest] of [
  ['misaligned', /./, 150],
  ['two', /^comparison/, 9],
]) {
  test(`A fault in the seventh digit of each kind of number that '${name}' is given is found`, () => {
    const [documents, data] = [documentsOf(name), pageData(name)];
    const kinds = faults(data, only);
    assert.ok(kinds.size >= fewest, `${kinds.size} kinds`);
    const unseen = [...kinds].filter(([, put]) => {
      const back = put();
      const seen = differences(pageOf(documents, data), data).length > 0;
      back();
      return !seen;
    });
    assert.deepEqual(
      unseen.map(([kind]) => kind),
      [],
    );
  });
}
