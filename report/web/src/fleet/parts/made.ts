import { el } from '../../dom/el';
import { section, terms } from '../../parts/chip';
import { countText } from '../dom';
import type { Scope } from './scope';

/** Where all of it comes from, and what it leaves out. */
export function made(scope: Scope): HTMLElement {
  const { fleet, calendar } = scope.view;
  const others = fleet.other_keys.map(({ key, values }) => `${key} (${countText(values)} values)`).join(', ');
  return section(
    'made',
    'How this was made',
    el(
      'div',
      { class: 'card' },
      terms([
        ['Store', fleet.title],
        ['Sets in it', countText(fleet.sets)],
        ['Serial numbers', countText(fleet.serials)],
        [
          'Counted by',
          `${calendar.period}, station and model${fleet.keys
            .slice(2)
            .map(({ key }) => `, ${key}`)
            .join('')}`,
        ],
        ...(others === '' ? [] : [['Other keys', others] as const]),
        ['Made', `${fleet.made.replace('T', ' ').replace('Z', ' UTC')}, ${fleet.tool.library}`],
      ]),
      ...fleet.notes.map((note) => el('p', { class: 'note' }, note)),
    ),
  );
}
