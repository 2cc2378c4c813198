import { el } from '../../dom/el';
import { tableElement } from '../../dom/table';
import { section } from '../../parts/chip';
import { cell, toldCount } from '../dom';
import type { Scope } from './scope';

/** Sums of a sparse list over the cells that are seen, most first. */
function tally(
  seen: ReadonlySet<number>,
  cells: readonly number[],
  of: readonly number[],
  sets: readonly number[],
): [number, number][] {
  const sums = new Map<number, number>();
  cells.forEach((row, k) => {
    if (seen.has(row)) sums.set(of[k]!, (sums.get(of[k]!) ?? 0) + sets[k]!);
  });
  return [...sums].sort((a, b) => b[1] - a[1] || a[0] - b[0]);
}

function card(
  title: string,
  figure: string,
  columns: [what: string, sets: string],
  names: readonly string[],
  sums: [number, number][],
  words: (name: string) => string,
): HTMLElement {
  const rows = sums.map(([index, sets]) => {
    const name = names[index] ?? '?';
    const said = words(name);
    const content = el('bdi', {}, said, said !== name && el('small', {}, name));
    return [cell(content, name), cell(toldCount(figure, name, sets), sets)];
  });
  return el(
    'div',
    { class: 'card' },
    el('h3', {}, title),
    rows.length === 0
      ? el('p', {}, 'None.')
      : tableElement({
          caption: title,
          columns: [{ title: columns[0] }, { title: columns[1], numbers: true }],
          rows,
          headed: true,
        }),
  );
}

/** Which limits are broken, what is warned of, how sets ended that have nothing to judge. */
export function tallies(scope: Scope): HTMLElement {
  const { fleet, rows, explanations } = scope.view;
  const seen = new Set(rows);
  const { broken, warnings, endings } = fleet;
  const title = (name: string) => explanations.title(name);
  return section(
    'tallies',
    'Limits, warnings, errors',
    el(
      'div',
      { class: 'grid' },
      card(
        'Limits that do not hold',
        'broken',
        ['Limit', 'Sets that break it'],
        fleet.limits,
        tally(seen, broken.cell, broken.limit, broken.sets),
        (name) => name,
      ),
      card(
        'Warnings',
        'warning',
        ['Warning', 'Sets warned of'],
        warnings.codes,
        tally(seen, warnings.cell, warnings.code, warnings.sets),
        title,
      ),
      card(
        'Errors',
        'ending',
        ['Error', 'Sets ended by it'],
        endings.names,
        tally(seen, endings.cell, endings.name, endings.sets),
        title,
      ),
    ),
  );
}
