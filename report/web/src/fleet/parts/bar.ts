import { el } from '../../dom/el';
import { tools } from '../../parts/tools';
import type { Fleet } from '../fleet_data';

/** The bar that stays. */
export function bar(fleet: Fleet): HTMLElement {
  return el(
    'header',
    { class: 'bar' },
    el('strong', {}, 'PolarLinePrecision'),
    el('bdi', { class: 'name' }, `Fleet: ${fleet.title}`),
    tools(),
  );
}
