// Runs the tests of test/*.test.ts, which need no browser, with node's own runner.
import { readdir } from 'node:fs/promises';
import { spawnSync } from 'node:child_process';
import { fileURLToPath } from 'node:url';
import path from 'node:path';
import { build } from 'esbuild';

const here = path.dirname(fileURLToPath(import.meta.url));
const tests = (await readdir(path.join(here, 'test'))).filter((name) => name.endsWith('.test.ts')).sort();
await build({
  absWorkingDir: here,
  entryPoints: tests.map((name) => `test/${name}`),
  bundle: true,
  platform: 'node',
  format: 'esm',
  outdir: 'build/test',
  outExtension: { '.js': '.mjs' },
  logLevel: 'warning',
});
const files = tests.map((name) => path.join(here, 'build', 'test', name.replace(/\.ts$/, '.mjs')));
process.exit(spawnSync(process.execPath, ['--test', ...files], { stdio: 'inherit' }).status ?? 1);
