// Takes the pictures of a page for the documents.   node take_pictures.mjs PAGE FOLDER NAME
import { writeFileSync } from 'node:fs';
import path from 'node:path';
import { closeBrowser, within } from './support/browser.mjs';

const [file, folder, name] = process.argv.slice(2);
const MOST_BYTES = 250_000;

/** The verdict in the light; in the dark the worst pair, of a fleet the same. */
const pictures = [
  { theme: 'light', hash: '' },
  { theme: 'dark', hash: name === 'fleet' ? '' : '#pair=0' },
];

try {
  for (const { theme, hash } of pictures) {
    await within(file, { theme, hash, width: 1280, height: 880, scale: 0.75, calm: true }, async (page) => {
      const picture = await page.screenshot();
      if (picture.length > MOST_BYTES) throw new Error(`the ${theme} picture has ${picture.length} bytes`);
      writeFileSync(path.join(folder, `${name}_${theme}.png`), picture);
    });
  }
} finally {
  await closeBrowser();
}
