import { App } from './app';
import type { PageData } from './page_data';

const text = (id: string): string => document.getElementById(id)?.textContent ?? '';

const root = document.getElementById('polarline-page');
const still = document.getElementById('polarline-static');
if (root) {
  new App(JSON.parse(text('polarline-data')) as PageData, root).start();
  // What stands there for browsers without scripts is said twice now.
  still?.remove();
}
