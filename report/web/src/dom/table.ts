import { copyText, csvField } from './copy';
import { append, el, type Child } from './el';
import { say } from './say';
import { figureText, tellFigure, type ShownFigure } from './value';

export interface Column {
  title: string;
  /** A second, small line: the figure's name or unit. */
  below?: string;
  /** Explains the column to who asks. */
  hint?: string;
  numbers?: boolean;
  /** Heads of the parts into which its cells are copied; '' for the column's own. */
  copied?: string[];
  /** Left out on paper, which is narrower than a list of all figures. */
  more?: boolean;
}

/** Text, a figure, or an element with the value by which it is sorted and copied. */
export type Cell = string | ShownFigure | ContentCell;

interface ContentCell {
  content: Node;
  value: string | number | null;
  /** As many as the column's `copied` says. */
  copied?: (string | number | null)[];
}

export interface Table {
  caption: string;
  columns: Column[];
  rows: Cell[][];
  /** Below, never sorted. */
  foot?: Cell[][];
  /** Marks rows; index of the row. */
  rowClass?: (row: number) => string;
  sortable?: boolean;
  /** A table of two or three lines needs no button. */
  copyable?: boolean;
  /** Begins with a heading cell. */
  headed?: boolean;
}

/** More wait until the rest of the page stands, and are laid out only when they are looked at. */
const manyCells = 4000;

function soon(work: () => void): void {
  if ('requestIdleCallback' in window) requestIdleCallback(work);
  else setTimeout(work, 500);
  addEventListener('beforeprint', work, { once: true });
}

function sortValue(cell: Cell | undefined): string | number | null {
  if (cell === undefined) return null;
  return typeof cell === 'string' ? cell : cell.value;
}

function compare(a: string | number | null, b: string | number | null): number {
  if (typeof a === 'number' && typeof b === 'number') return a - b;
  return String(a).localeCompare(String(b), 'en', { numeric: true });
}

function classOf(column: Column | undefined): string {
  return [column?.numbers && 'number', column?.more && 'more'].filter(Boolean).join(' ');
}

function cellElement(cell: Cell, heading: boolean, name: string): HTMLElement {
  const element = heading ? el('th', { scope: 'row' }) : el('td');
  if (name) element.className = name;
  if (typeof cell === 'string') element.textContent = cell;
  else if ('content' in cell) element.append(cell.content);
  else {
    element.textContent = figureText(cell);
    tellFigure(element, cell);
    if (cell.value === null) element.title = cell.absence ?? '';
    if (cell.over) element.classList.add('over-text');
  }
  return element;
}

function copiedHeads({ title, below, copied = [''] }: Column): string[] {
  const head = below ? `${title} (${below})` : title;
  return copied.map((part) => (part === '' ? head : `${head}, ${part}`));
}

/** What cannot be parted stands in the first of the column's fields. */
function copiedValues(cell: Cell, column: Column | undefined): (string | number | null)[] {
  if (typeof cell !== 'string' && 'copied' in cell && cell.copied) return cell.copied;
  const parts = column?.copied?.length ?? 1;
  return [sortValue(cell), ...Array<null>(parts - 1).fill(null)];
}

export function csv(table: Pick<Table, 'columns' | 'rows'>): string {
  const heads = table.columns.flatMap((column) => copiedHeads(column).map(csvField));
  const lines = table.rows.map((row) =>
    row.flatMap((cell, at) => copiedValues(cell, table.columns[at])).map((value) => csvField(String(value ?? ''))),
  );
  return [heads.join(','), ...lines].join('\n') + '\n';
}

function copyButton(table: Table): HTMLElement {
  const button = el('button', { type: 'button', class: 'quiet no-print' }, 'Copy as CSV');
  button.addEventListener('click', async () => {
    const done = await copyText(csv(table));
    say(done ? `${table.caption}: copied` : 'The browser does not let the page copy.');
    button.textContent = done ? 'Copied' : 'Not copied';
    setTimeout(() => (button.textContent = 'Copy as CSV'), 1500);
  });
  return button;
}

function headCell(column: Column, sort: (() => void) | null): HTMLElement {
  const head = el('th', { scope: 'col', class: classOf(column) || null, title: column.hint });
  const words: Child[] = [column.title, column.below ? el('small', {}, column.below) : null];
  if (!sort) append(head, ...words);
  else {
    const button = el('button', { type: 'button', class: 'sort no-print', click: sort }, ...words);
    // On paper a button in a head that stands on every sheet is painted on the first one only.
    const printed = el(
      'span',
      { class: 'print-only', 'aria-hidden': 'true' },
      column.title,
      column.below && el('small', {}, column.below),
    );
    append(head, button, printed);
  }
  return head;
}

/** A table in a frame of its own that scrolls sideways, so that the page never does. */
export function tableElement(table: Table): HTMLElement {
  const order = table.rows.map((_, index) => index);
  const lineOf = (row: Cell[], name: string | null): HTMLElement => {
    const line = el('tr', { class: name });
    row.forEach((cell, column) =>
      line.append(cellElement(cell, table.headed === true && column === 0, classOf(table.columns[column]))),
    );
    return line;
  };
  const large = table.rows.length * table.columns.length > manyCells;
  const body = el('tbody');
  let lines: HTMLElement[] = [];
  const fill = (): void => {
    if (lines.length > 0) return;
    lines = table.rows.map((row, index) => lineOf(row, table.rowClass?.(index) || null));
    body.append(...lines);
  };
  if (large) soon(fill);
  else fill();
  let sorted = -1;
  let rising = true;
  const heads = table.columns.map((column, index) => headCell(column, table.sortable ? () => sortBy(index) : null));
  function sortBy(column: number): void {
    fill();
    rising = column === sorted ? !rising : true;
    sorted = column;
    const keys = table.rows.map((row) => sortValue(row[column]));
    order.sort((a, b) => {
      const [left, right] = [keys[a] ?? null, keys[b] ?? null];
      // What is not there stands last, either way.
      if (left === null || right === null) return Number(left === null) - Number(right === null) || a - b;
      return (rising ? 1 : -1) * compare(left, right) || a - b;
    });
    heads.forEach((head, index) => {
      if (index === column) head.setAttribute('aria-sort', rising ? 'ascending' : 'descending');
      else head.removeAttribute('aria-sort');
    });
    body.append(...order.map((index) => lines[index]!));
  }
  const scroller = el(
    'div',
    { class: 'scroller', tabindex: 0, role: 'region', 'aria-label': table.caption },
    el(
      'table',
      {},
      el('caption', { class: 'hidden-text' }, table.caption),
      el('thead', {}, el('tr', {}, ...heads)),
      body,
      table.foot ? el('tfoot', {}, ...table.foot.map((row) => lineOf(row, null))) : null,
    ),
  );
  return el(
    'div',
    { class: `table ${large ? 'large' : ''}` },
    scroller,
    table.copyable === false ? null : copyButton(table),
  );
}
