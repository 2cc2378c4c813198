import { FleetApp } from './app';
import type { FleetPageData } from './fleet_data';

const text = (id: string): string => document.getElementById(id)?.textContent ?? '';

const root = document.getElementById('polarline-page');
const still = document.getElementById('polarline-static');
if (root) {
  new FleetApp(JSON.parse(text('polarline-data')) as FleetPageData, root).start();
  // What stands there for browsers without scripts is said twice now.
  still?.remove();
}
