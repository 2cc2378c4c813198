// One browser for whoever asks in this process, and pages that write down everything they should not do.
import { pathToFileURL } from 'node:url';
import puppeteer from 'puppeteer-core';

const READY_WITHIN = 20_000;

let browser;

async function theBrowser() {
  browser ??= await puppeteer.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-dev-shm-usage', '--force-color-profile=srgb', '--lang=en-GB'],
  });
  return browser;
}

/** Node does not end before. */
export async function closeBrowser() {
  await browser?.close();
  browser = undefined;
}

/** What a page wrote to the console, failed at or asked of anybody but itself; empty lists are what we want. */
function watched(page) {
  const seen = { console: [], errors: [], requests: [] };
  page.on('console', (message) => seen.console.push(`${message.type()}: ${message.text()}`));
  page.on('pageerror', (error) => seen.errors.push(String(error)));
  page.on('request', (request) => {
    if (!/^(file|data|blob):/.test(request.url())) seen.requests.push(request.url());
  });
  return seen;
}

/**
 * Opens a file as somebody would from disk.
 * @param options width, height, scale (device pixels a CSS pixel), theme ('light' or 'dark'), calm (reduced motion),
 *   script (false: JavaScript is off), drawn (false: nothing will be drawn), hash (of the address, '#pair=1')
 */
export async function opened(file, options = {}) {
  const page = await (await theBrowser()).newPage();
  const seen = watched(page);
  const {
    width = 1280,
    height = 900,
    scale = 1,
    theme = 'light',
    calm = false,
    script = true,
    drawn = script,
    hash = '',
  } = options;
  await page.setViewport({ width, height, deviceScaleFactor: scale });
  await page.emulateMediaFeatures([
    { name: 'prefers-color-scheme', value: theme },
    { name: 'prefers-reduced-motion', value: calm ? 'reduce' : 'no-preference' },
  ]);
  await page.setJavaScriptEnabled(script);
  await page.evaluateOnNewDocument(() => {
    const observer = new MutationObserver(() => {
      if (document.documentElement?.dataset.ready !== 'true') return;
      globalThis.readyAfter ??= performance.now();
      observer.disconnect();
    });
    observer.observe(document, { attributes: true, subtree: true, attributeFilter: ['data-ready'] });
  });
  await page.goto(pathToFileURL(file).href + hash, { waitUntil: 'load' });
  if (drawn) {
    await settled(page).catch((error) => {
      throw new Error([`${file} is not drawn: ${error.message}`, ...complaints(seen)].join('\n'));
    });
  }
  return { page, seen };
}

/** Waits until everything is drawn, also after a change of the pair. */
export async function settled(page) {
  await page.waitForFunction(() => document.documentElement.dataset.ready === 'true', { timeout: READY_WITHIN });
  await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(() => done()))));
  await page.waitForFunction(() => document.documentElement.dataset.ready === 'true', { timeout: READY_WITHIN });
}

/** Opens, does and closes. */
export async function within(file, options, work) {
  const { page, seen } = await opened(file, options);
  try {
    return await work(page, seen);
  } finally {
    await page.close();
  }
}

/** Everything of it in one list, to be compared with an empty one. */
export const complaints = (seen) => [...seen.console, ...seen.errors, ...seen.requests];

/** Another pair (and check) by the address, as a link or the back button would. */
export async function goTo(page, hash) {
  await page.evaluate((wanted) => {
    location.hash = wanted;
  }, hash);
  await settled(page);
}
