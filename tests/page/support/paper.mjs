// A page as it is printed: its words and where they stand.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import path from 'node:path';

/** Stands at the right edge of the page's body. */
const edgeMark = 'rightmost';

/**
 * Has a word stand at the first and at the last line of each plot on paper, by which a cut one is found. They are put
 * in when printing begins, after the page has drawn for paper. Another one tells where the page's right edge comes.
 */
function markPlots(page) {
  return page.evaluate((edgeText) => {
    const mark = (text, place) => {
      const node = document.createElement('span');
      node.textContent = text;
      node.style.cssText = `position: absolute; left: 0; ${place}: 0; font: 4px monospace; color: #000`;
      return node;
    };
    addEventListener('beforeprint', () => {
      const edge = mark(edgeText, 'top');
      Object.assign(edge.style, { left: 'auto', right: '0' });
      document.body.style.position = 'relative';
      document.body.append(edge);
      [...document.querySelectorAll('figure')].forEach((figure, index) => {
        figure.style.position = 'relative';
        figure.append(mark(`begin${index}mark`, 'top'), mark(`end${index}mark`, 'bottom'));
      });
    });
    return [...document.querySelectorAll('figure')].map((figure, index) => ({
      title: figure.querySelector('h3')?.textContent ?? `figure ${index}`,
      begin: `begin${index}mark`,
      end: `end${index}mark`,
    }));
  }, edgeMark);
}

const number = (text, name) => Number(new RegExp(`${name}="([\\d.-]+)"`).exec(text)[1]);

function wordOf(line) {
  const text = /<word[^>]*>([^<]*)<\/word>/.exec(line)[1];
  return {
    text,
    left: number(line, 'xMin'),
    right: number(line, 'xMax'),
    top: number(line, 'yMin'),
    bottom: number(line, 'yMax'),
  };
}

/** The sheets with their size and words, points of 1/72 inch. */
export async function printed(page) {
  const folder = mkdtempSync(path.join(tmpdir(), 'page_paper_'));
  try {
    const file = path.join(folder, 'page.pdf');
    writeFileSync(file, await page.pdf({ preferCSSPageSize: true, printBackground: true }));
    const text = execFileSync('pdftotext', ['-bbox', file, '-'], { encoding: 'utf8', maxBuffer: 2 ** 28 });
    return text
      .split('<page ')
      .slice(1)
      .map((sheet) => ({
        width: number(sheet, 'width'),
        height: number(sheet, 'height'),
        words: (sheet.match(/<word.*<\/word>/g) ?? []).map(wordOf),
      }));
  } finally {
    rmSync(folder, { recursive: true });
  }
}

const A4 = { width: 595, height: 842 };

/** No plot is cut, nothing is made smaller or sticks out. */
export async function assertWholeOnA4(page) {
  const plots = await markPlots(page);
  const sheets = await printed(page);
  assert.ok(sheets.every(({ width, height }) => Math.abs(width - A4.width) < 2 && Math.abs(height - A4.height) < 2));
  const edge = sheets[0].words.find(({ text }) => text === edgeMark);
  assert.ok(edge.right > A4.width - 50, `the print is made smaller: its right edge is at ${edge.right}`);
  const places = new Map(sheets.flatMap(({ words }, sheet) => words.map(({ text }) => [text, sheet])));
  for (const plot of plots) {
    assert.ok(places.has(plot.begin) && places.has(plot.end), `${plot.title} is not on paper as a whole`);
    assert.equal(places.get(plot.begin), places.get(plot.end), `${plot.title} lies on two sheets`);
  }
  const out = sheets.flatMap(({ words }) => words.filter(({ left, right }) => left < 20 || right > A4.width - 20));
  assert.deepEqual(
    out.map(({ text }) => text),
    [],
    'beyond the margin',
  );
}
