// Where scripts/page_tests put the pages and their documents.
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import path from 'node:path';
import { fileURLToPath } from 'node:url';

export const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../../..');
const folder = process.env.PAGE_TESTS ?? path.join(root, 'build/page_tests');

export const pageFile = (name) => path.join(folder, `${name}.html`);
export const pageText = (name) => readFileSync(pageFile(name), 'utf8');
export const checkDocumentFile = (name) => path.join(folder, `${name}.json`);
export const checkDocument = (name) => JSON.parse(readFileSync(checkDocumentFile(name), 'utf8'));

/** The pages of one check. */
export const single = ['good', 'misaligned', 'nulls', 'one_pair', 'unseen', 'empty', 'broken', 'colour'];

/** The pages of several checks, with the documents that stand in them. */
export const compared = {
  two: ['misaligned', 'good'],
  eight: ['good', 'misaligned', ...[1, 2, 3, 4, 5, 6].map((index) => `after_${index}`)],
  sizes: ['good', 'dense'],
};

/** Works on a page that was changed after it was made. */
export async function withCopy(name, change, work) {
  const folder = mkdtempSync(path.join(tmpdir(), 'page_copy_'));
  const file = path.join(folder, 'page.html');
  const text = pageText(name);
  const changed = change(text);
  if (changed === text) throw new Error(`nothing of ${name} was changed`);
  writeFileSync(file, changed);
  try {
    return await work(file);
  } finally {
    rmSync(folder, { recursive: true });
  }
}

const dataElement = /(<script type="application\/json" id="polarline-data">)([^]*?)(<\/script>)/;

/** What a page was given. */
export const pageData = (name) => JSON.parse(dataElement.exec(pageText(name))[2]);

/** A page of other data. */
export const withData = (name, data, work) =>
  withCopy(
    name,
    (text) =>
      text.replace(dataElement, (_, begin, __, end) => begin + JSON.stringify(data).replaceAll('<', '\\u003c') + end),
    work,
  );
