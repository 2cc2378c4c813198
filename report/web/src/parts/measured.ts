import { el } from '../dom/el';
import { tableElement } from '../dom/table';
import { sheetStyle } from '../dom/sheets';
import { section, terms } from './chip';
import { moment } from './verdict';
import type { CheckDocument, PageData } from '../page_data';
import type { Scope } from './scope';

/** Names and values of a record within records, a line each. */
export function lines(record: Record<string, unknown>, prefix = ''): [string, string][] {
  return Object.entries(record).flatMap(([key, value]): [string, string][] => {
    const name = `${prefix}${key}`;
    if (value !== null && typeof value === 'object' && !Array.isArray(value)) {
      return lines(value as Record<string, unknown>, `${name}.`);
    }
    return [[name, text(value)]];
  });
}

function text(value: unknown): string {
  if (Array.isArray(value)) return value.length === 0 ? '–' : value.map(text).join(', ');
  return value === null || value === undefined ? '–' : String(value);
}

/** Folded away on the screen, open on paper, where nobody can unfold it. */
const folded = { class: 'card on-paper titled' };

function settingsCard(scope: Scope): HTMLElement {
  const rows = lines(scope.check.document.settings);
  return el(
    'details',
    folded,
    el('summary', {}, el('h3', {}, 'Polar configuration'), ` ${rows.length} keys`),
    tableElement({
      caption: 'Polar configuration',
      columns: [{ title: 'Key' }, { title: 'Value' }],
      rows,
      sortable: true,
      headed: true,
    }),
  );
}

/** A list of hundreds of pictures is for the screen; the hash of the set holds them all. */
const mostOnPaper = 60;

function filesCard(scope: Scope): HTMLElement {
  const { inputs, id } = scope.check.document.set;
  const many = inputs.length > mostOnPaper;
  return el(
    'details',
    folded,
    el('summary', {}, el('h3', {}, 'Files and their hashes'), ` ${inputs.length} files`),
    id !== '' && el('p', {}, 'Hash of the whole set: ', el('code', {}, id)),
    tableElement({
      caption: 'Files',
      columns: [{ title: 'Role' }, { title: 'File' }, { title: 'SHA-256' }],
      rows: inputs.map(({ role, path, sha256 }) => [role, path, sha256 || 'could not be read']),
      rowClass: (row) => (many && /^(left|right)\//.test(inputs[row]?.role ?? '') ? 'no-print' : ''),
      sortable: true,
      headed: true,
    }),
  );
}

const kinds: Record<number, string> = { 1: 'rings', 2: 'rings', 3: 'big dots' };

function boardWords(board: CheckDocument['board']): [string, string][] {
  const { type, rows, cols, step, step_y: down, points } = board;
  if (points <= 0) return [['Board', 'not read']];
  const apart = down > 0 && down !== step ? `${step} apart in a row, ${down} between rows` : `${step} apart`;
  const kind = kinds[type] === undefined ? `type ${type}` : `with ${kinds[type]} (type ${type})`;
  return [
    ['Board', `${cols} × ${rows} dots ${kind}`],
    ['Pitch', apart],
  ];
}

/** Broken at blanks only, as a line that breaks behind the hyphens of an option is read wrongly. */
function commandLine(command: string): HTMLElement {
  const words = command
    .split(' ')
    .flatMap((word, index) => [index > 0 && ' ', el('span', { class: 'unbroken' }, word)]);
  return el('code', {}, ...words);
}

/** With what, by what and how it was measured. */
export function measured(scope: Scope, { made, command }: PageData): HTMLElement {
  const { document } = scope.check;
  const cameras = lines(document.cameras);
  return section(
    'measured',
    'How it was measured',
    el('style', {}, sheetStyle(scope.check.title)),
    el(
      'div',
      { class: 'grid' },
      el(
        'div',
        { class: 'card' },
        el('h3', {}, 'Board and versions'),
        terms([
          ...boardWords(document.board),
          ['Program', `${document.tool.name} ${document.tool.version}`],
          ['Library', document.tool.library],
          ['Measured', moment(document.started)],
          ['Page made', moment(made)],
          ...(command === '' ? [] : [['Command line', commandLine(command)] as const]),
          ['Hash of the set', el('code', {}, document.set.id || '–')],
        ]),
      ),
      el('details', folded, el('summary', {}, el('h3', {}, 'Cameras')), terms(cameras)),
      settingsCard(scope),
      filesCard(scope),
    ),
  );
}
