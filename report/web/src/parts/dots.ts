import { el } from '../dom/el';
import { tableElement, type Cell, type Column } from '../dom/table';
import type { DotColumns, Statistics } from '../page_data';
import type { Selection } from '../state/selection';
import { shown, signed, typographic } from '../text/number';
import { pixels } from './pair_views';
import type { PairScope } from './scope';

const columns: Column[] = [
  { title: 'Dot', numbers: true },
  { title: 'Row', numbers: true },
  { title: 'Column', numbers: true },
  { title: 'Left pixel', numbers: true, copied: ['x', 'y'] },
  { title: 'Right pixel', numbers: true, copied: ['x', 'y'] },
  { title: 'Row difference', below: 'px', numbers: true },
  { title: 'Residual', below: 'px', numbers: true },
  { title: 'Off the board', below: 'board unit', numbers: true },
  { title: 'Depth error', below: 'board unit', numbers: true },
];

function number(value: number | null | undefined, words = signed): Cell {
  return typeof value === 'number' ? { content: document.createTextNode(words(value)), value } : '–';
}

function pixel(x: number | null | undefined, y: number | null | undefined): Cell {
  const there = typeof x === 'number' && typeof y === 'number';
  const text = (): Node => document.createTextNode(`${x?.toFixed(1)}, ${y?.toFixed(1)}`);
  return there ? { content: text(), value: `${x} ${y}`, copied: [x, y] } : '–';
}

function dotRow(points: DotColumns, index: number, selection: Selection): Cell[] {
  const id = points.id[index] ?? -1;
  const mark = el(
    'button',
    { type: 'button', class: 'link', 'aria-pressed': String(selection.marked.has(id)) },
    String(id),
  );
  mark.addEventListener('click', () => selection.toggle(id));
  mark.dataset['dot'] = String(id);
  const off = [points.off_x[index], points.off_y[index], points.off_z[index]];
  const { left, right } = pixels(points);
  const size = off.every((value) => typeof value === 'number') ? Math.hypot(...(off as number[])) : null;
  return [
    { content: mark, value: id },
    number(points.row[index], String),
    number(points.column[index], String),
    pixel(left.x[index], left.y[index]),
    pixel(right.x[index], right.y[index]),
    number(points.dy[index]),
    number(points.residual[index], shown),
    number(size, shown),
    number(points.depth_error[index]),
  ];
}

/** What no dot of the pair has gets no column. */
function dotTable(caption: string, points: DotColumns, indices: number[], selection: Selection): HTMLElement {
  const rows = indices.map((index) => dotRow(points, index, selection));
  const there = columns.map((_, column) => rows.some((row) => row[column] !== '–'));
  const kept = <T>(entries: readonly T[]): T[] => entries.filter((_, column) => there[column]);
  return tableElement({ caption, columns: kept(columns), rows: rows.map(kept), sortable: true });
}

/** The ten worst dots; each can be marked in all plots. */
export function worstDots(
  scope: PairScope,
  points: DotColumns,
  statistics: Statistics,
  selection: Selection,
): HTMLElement {
  const card = el(
    'div',
    { class: 'card full' },
    el('h3', {}, 'The worst dots'),
    el('p', { class: 'sentence' }, typographic(statistics.sentences.worst_dots)),
    dotTable('The worst dots', points, statistics.worst, selection),
  );
  selection.subscribe(() => {
    for (const button of card.querySelectorAll<HTMLElement>('[data-dot]')) {
      button.setAttribute('aria-pressed', String(selection.marked.has(Number(button.dataset['dot']))));
    }
  }, scope.end);
  return card;
}

/** The dots that are marked or brushed, as numbers; hidden while there are none. */
export function chosenDots(scope: PairScope, points: DotColumns, selection: Selection): HTMLElement {
  const title = el('h3');
  const body = el('div');
  const clear = el('button', { type: 'button', class: 'quiet', click: () => selection.clear() }, 'Clear (Escape)');
  const card = el(
    'div',
    { class: 'card full chosen no-print', hidden: true },
    el('div', { class: 'plot-head' }, title, clear),
    body,
  );
  const most = 200;
  let shownSets: unknown[] = [];
  selection.subscribe(() => {
    if (shownSets[0] === selection.marked && shownSets[1] === selection.brushed) return;
    shownSets = [selection.marked, selection.brushed];
    const chosen = points.id
      .map((id, index) => (selection.marked.has(id) || selection.brushed?.has(id) ? index : -1))
      .filter((index) => index >= 0);
    card.hidden = chosen.length === 0;
    title.textContent = `${chosen.length} chosen dot${chosen.length === 1 ? '' : 's'}${chosen.length > most ? `, the first ${most}` : ''}`;
    body.replaceChildren(
      ...(chosen.length > 0 ? [dotTable('Chosen dots', points, chosen.slice(0, most), selection)] : []),
    );
  }, scope.end);
  return card;
}
