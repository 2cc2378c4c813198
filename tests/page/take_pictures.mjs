// Takes the pictures of a page for the documents.   node take_pictures.mjs PAGE FOLDER
import { writeFileSync } from 'node:fs';
import path from 'node:path';
import { closeBrowser, within } from './support/browser.mjs';

const [file, folder] = process.argv.slice(2);
const MOST_BYTES = 250_000;

/** The verdict in the light, the worst pair in the dark. */
const pictures = [
  { theme: 'light', hash: '' },
  { theme: 'dark', hash: '#pair=0' },
];

try {
  for (const { theme, hash } of pictures) {
    await within(file, { theme, hash, width: 1280, height: 880, scale: 0.75, calm: true }, async (page) => {
      const picture = await page.screenshot();
      if (picture.length > MOST_BYTES) throw new Error(`the ${theme} picture has ${picture.length} bytes`);
      writeFileSync(path.join(folder, `report_${theme}.png`), picture);
    });
  }
} finally {
  await closeBrowser();
}
