import { el } from '../../dom/el';
import type { Fleet } from '../fleet_data';
import type { Filter } from '../view/filter';

export interface Filters {
  element: HTMLElement;
  show(filter: Filter, text: string): void;
}

function heading(key: string): string {
  return key.charAt(0).toUpperCase() + key.slice(1);
}

/** One list a key that has more than one value. It stays while the rest of the page is drawn anew. */
export function filters({ keys }: Fleet, change: (filter: Filter) => void): Filters {
  const lists = keys.map(({ key, values }, index) => {
    const list = el(
      'select',
      { 'data-key': key, change: () => change(chosen()) },
      el('option', { value: '' }, 'all'),
      ...values.map((value, k) => el('option', { value: k }, value ?? '(not said)')),
    );
    return { index, list, several: values.length > 1, label: heading(key) };
  });
  const chosen = (): Filter => lists.map(({ list }) => (list.value === '' ? null : Number(list.value)));
  const reset = el('button', { type: 'button', class: 'quiet', click: () => change(keys.map(() => null)) }, 'Show all');
  const seen = el('span', { class: 'faint', role: 'status' });
  const shown = lists.filter(({ several }) => several);
  const element = el(
    'form',
    { class: 'card filters', 'aria-label': 'Filter', submit: (event: Event) => event.preventDefault() },
    ...shown.map(({ list, label }) => el('label', { class: 'filter no-print' }, el('bdi', {}, label), list)),
    shown.length > 0 && el('span', { class: 'no-print' }, reset),
    seen,
  );
  return {
    element,
    show(filter, text) {
      lists.forEach(({ list }, k) => (list.value = filter[k] === null ? '' : String(filter[k])));
      reset.hidden = filter.every((value) => value === null);
      seen.textContent = text;
    },
  };
}
