// Renders small sets, checks them and makes the pages that the tests open.   node make_pages.mjs POLARLINE FOLDER
import { execFileSync, spawnSync } from 'node:child_process';
import { mkdirSync, readFileSync, renameSync, rmSync, truncateSync, writeFileSync } from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { fleetDocuments } from './support/fleet_pages.mjs';
import { fisheye, hostile, limited, many, oneFinished, onePair, scaled, withNulls } from './support/alter.mjs';

const [polarline, folder] = process.argv.slice(2).map((name) => path.resolve(name));
const here = path.dirname(fileURLToPath(import.meta.url));
const sets = path.join(folder, 'sets');
const document = (name) => path.join(folder, `${name}.json`);

function run(...words) {
  execFileSync(polarline, words, { stdio: ['ignore', 'ignore', 'inherit'] });
}

function simulate(scene, name, ...words) {
  run('simulate', scene, path.join(sets, name), '--quiet', ...words);
}

/** A check may end with any of the answers of a run; a page is made of each. */
function check(name, ...words) {
  const ended = spawnSync(polarline, ['check', path.join(sets, name), '--json', document(name), '--quiet', ...words]);
  if (![0, 1, 2, 3].includes(ended.status))
    throw new Error(`check of ${name} ended with ${ended.status}: ${ended.stderr}`);
}

const read = (name) => JSON.parse(readFileSync(document(name), 'utf8'));
const write = (name, made) => writeFileSync(document(name), JSON.stringify(made));

function report(name, documents = [name], ...words) {
  run('report', ...documents.map(document), '-o', path.join(folder, `${name}.html`), '--quiet', ...words);
}

/** On a list, on a figure that is not a main one, on a refined one, two on one figure, and one from below. */
const manyLimits = [
  '|tri_dis[0]|<=0.2',
  'allpoint_max<=263.5',
  'refined.dy_means<=0.286',
  'dy_means<=5',
  'dy_means<=0.285',
  'tri_rms>=0.1435',
  'dy_max<=0.41',
];

/** Pictures with names that are no UTF-8. */
function namedByBytes() {
  simulate('ring_320', 'bytes', '--pairs', '1');
  const name = Buffer.concat([Buffer.from('<b>'), Buffer.from([0xff, 0xfe, 0xc3, 0x28]), Buffer.from('.png')]);
  const folder = Buffer.from(path.join(sets, 'bytes') + path.sep);
  renameSync(path.join(sets, 'bytes', 'left_0.png'), Buffer.concat([folder, name]));
  writeFileSync(
    path.join(sets, 'bytes', 'list.txt'),
    Buffer.concat([Buffer.from('#L R\n'), name, Buffer.from(' right_0.png\n')]),
  );
  check('bytes');
}

/** The second of three pairs ends the run: its picture is cut off. */
function brokenRun() {
  simulate('ring_320', 'broken', '--pairs', '3');
  truncateSync(path.join(sets, 'broken', 'right_1.png'), 2000);
  check('broken', '--limit', 'dy_means<=0.5', '--limit', 'given_up<=0');
}

function ofRuns() {
  // From five pairs on a mean has an uncertainty, by which checks are compared.
  simulate('ring_320', 'good', '--pairs', '5');
  check('good', '--refine', '--limit', 'dy_means<=0.5', '--limit', 'tri_rms<=0.5');
  simulate(path.join(here, 'scenes', 'misaligned.json'), 'misaligned');
  check(
    'misaligned',
    '--refine',
    '--limit',
    'dy_means<=0.05',
    '--limit',
    '|tri_dis[0]|<=0.5',
    '--limit',
    'given_up<=0',
  );
  simulate(path.join(here, 'scenes', 'unseen.json'), 'unseen');
  check('unseen', '--limit', 'dy_means<=0.05');
  simulate('ring_320', 'empty', '--pairs', '1');
  writeFileSync(path.join(sets, 'empty', 'list.txt'), '');
  check('empty');
  namedByBytes();
  brokenRun();
  simulate('ring_640_bgr', 'colour', '--pairs', '1');
  check('colour', '--set', 'triangulate_residual_switch=1');
  simulate('ring_640', 'dense', '--pairs', '1');
  check('dense', '--limit', 'dy_means<=0.05');
}

function altered() {
  write('hostile', hostile(read('misaligned')));
  write('nulls', withNulls(read('good')));
  write('one_pair', onePair(read('good')));
  write('one_finished', oneFinished(read('misaligned')));
  write('many', many(read('dense'), 500));
  write('limits', limited(read('misaligned'), ...manyLimits));
  write('limits_refined', limited(read('misaligned'), 'refined.dy_means<=0.2845'));
  write('unlimited', limited(read('misaligned')));
  write('fisheye', fisheye(read('misaligned')));
  for (let index = 1; index <= 6; index += 1)
    write(`after_${index}`, scaled(read('good'), `after ${index}`, 1 + index / 10));
}

rmSync(folder, { recursive: true, force: true });
mkdirSync(sets, { recursive: true });
ofRuns();
altered();
for (const name of [
  ...['good', 'misaligned', 'unseen', 'empty', 'hostile', 'bytes', 'nulls', 'one_pair', 'one_finished', 'many'],
  ...['limits', 'limits_refined', 'unlimited', 'fisheye', 'broken', 'colour'],
])
  report(name);
report('two', ['misaligned', 'good']);
report('eight', ['good', 'misaligned', ...[1, 2, 3, 4, 5, 6].map((index) => `after_${index}`)]);
// The tables of the many alone are more than their half of it.
report('beside_many', ['dense', 'many'], '--budget', '1500000');
report('without_maps', ['dense', 'many'], '--budget', '1');
// Pictures of 320 and of 640 pixels across.
report('sizes', ['good', 'dense']);
report('with_paths', ['good'], '--paths');
for (const [name, made] of fleetDocuments()) {
  write(name, made);
  report(name);
}
