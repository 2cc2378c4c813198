// Stands in front of each file of tests: the browser ends with them.
import { after } from 'node:test';
import { closeBrowser } from './browser.mjs';

after(closeBrowser);
