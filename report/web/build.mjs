// Makes the templates of the pages, page.html of checks and fleet.html of a store, in .. or the folder that is named: each
// one html file with the script, the styles and the licences of the packages in it. The same sources give the same bytes
// in any folder and locale.
import { createHash } from 'node:crypto';
import { readFile, readdir, writeFile } from 'node:fs/promises';
import { fileURLToPath } from 'node:url';
import path from 'node:path';
import { build, transform } from 'esbuild';
import { leftOut } from './left_out.mjs';

const here = path.dirname(fileURLToPath(import.meta.url));
const target = path.resolve(process.argv[2] ?? path.join(here, '..'));
const pages = [
  { name: 'page.html', entry: 'src/main.ts', styles: [] },
  { name: 'fleet.html', entry: 'src/fleet/main.ts', styles: ['fleet/fleet.css'] },
];
const largest = 350_000;

/** Names of the packages of which code is in the bundle. */
function packagesOf(metafile) {
  const names = new Set();
  for (const [file, { bytesInOutput }] of Object.values(metafile.outputs).flatMap((o) => Object.entries(o.inputs))) {
    const name = /^node_modules\/((?:@[^/]+\/)?[^/]+)\//.exec(file)?.[1];
    if (name && bytesInOutput > 0) names.add(name);
  }
  return [...names].sort();
}

/** Every licence once, with the packages that come under it. */
async function licences(packages) {
  const byText = new Map();
  for (const name of packages) {
    const folder = path.join(here, 'node_modules', name);
    const file = (await readdir(folder)).find((entry) => /^licen[cs]e/i.test(entry));
    if (!file) throw new Error(`${name} has no licence text`);
    const text = (await readFile(path.join(folder, file), 'utf8')).replace(/\r/g, '').trim();
    const [, copyright, terms] = /^((?:.*\n)*?Copyright.*\n(?:Copyright.*\n)*)([^]*)$/.exec(text) ?? ['', '', '', text];
    const key = terms.replace(/\s+/g, ' ').trim();
    const entry = byText.get(key) ?? { terms: terms.trim(), of: [] };
    entry.of.push(`${name}: ${copyright.replace(/\s+/g, ' ').trim()}`);
    byText.set(key, entry);
  }
  return [...byText.values()].map(({ terms, of }) => `${of.join('\n')}\n\n${terms}`).join('\n\n\n');
}

const escaped = (text) => text.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;');

function filled(template, values) {
  return template.replace(/@(STYLE|SCRIPT|SCRIPT_HASH|LICENCES)@/g, (_, name) => values[name]);
}

/** In the order in which they count. */
const styleSheets = [
  ...['colours', 'page', 'controls', 'cards', 'states', 'figures', 'tables', 'around', 'narrow', 'sections'].map(
    (name) => `styles/${name}.css`,
  ),
  'plots/plots.css',
];

async function makePage({ name, entry, styles: own }) {
  const source = (name) => readFile(path.join(here, 'src', name), 'utf8');
  const bundle = await build({
    absWorkingDir: here,
    entryPoints: [entry],
    bundle: true,
    minify: true,
    format: 'iife',
    target: ['chrome100', 'firefox100', 'safari15.4'],
    charset: 'ascii',
    legalComments: 'none',
    plugins: [leftOut],
    metafile: true,
    write: false,
    logLevel: 'warning',
  });
  const script = bundle.outputFiles[0].text.trim();
  if (/<\/script|<!--/i.test(script)) throw new Error('the script would end its own element');
  const styles = await Promise.all([...styleSheets, ...own, 'styles/print.css'].map(source));
  const style = (await transform(styles.join('\n'), { loader: 'css', minify: true })).code.trim();
  const page = filled(await source('page.html'), {
    SCRIPT: script,
    SCRIPT_HASH: `sha256-${createHash('sha256').update(script).digest('base64')}`,
    STYLE: style,
    LICENCES: escaped(await licences(packagesOf(bundle.metafile))),
  });
  for (const mark of ['@POLARLINE_DATA@', '@POLARLINE_STATIC@', '@POLARLINE_TITLE@']) {
    if (page.split(mark).length !== 2) throw new Error(`the template has to hold ${mark} once`);
  }
  // The hash is that of everything between the tags, so the source must not be laid out anew.
  if (!page.includes(`<script>${script}</script>`)) throw new Error('the script has to stand alone in its element');
  const size = Buffer.byteLength(page);
  if (size > largest) throw new Error(`the template has ${size} bytes, ${largest} are allowed`);
  await writeFile(path.join(target, name), page);
  console.log(`${name}: ${size} bytes`);
}

for (const page of pages) await makePage(page);
