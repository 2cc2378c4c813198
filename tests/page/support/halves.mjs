// Writes two files that import half of the tests each, and tells their paths: a process, and with it a browser, is
// started for each of two files and not for each of a dozen.   node halves.mjs FOLDER FILE.test.mjs ...
import { writeFileSync } from 'node:fs';
import path from 'node:path';
import { pathToFileURL } from 'node:url';

const [folder, ...files] = process.argv.slice(2);
const imports = files.map((file) => `import '${pathToFileURL(path.resolve(file)).href}';\n`);
for (const half of [0, 1]) {
  const file = path.join(folder, `half_${half}.test.mjs`);
  writeFileSync(file, imports.filter((_, index) => index % 2 === half).join(''));
  console.log(file);
}
