import type { PageData } from './page_data';
import { el } from './dom/el';

const data = JSON.parse(document.getElementById('polarline-data')?.textContent ?? '') as PageData;
const page = document.getElementById('polarline-page');
page?.append(...data.checks.map((check) => el('h1', {}, check.headline)));
document.documentElement.dataset['ready'] = 'true';
