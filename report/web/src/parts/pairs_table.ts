import { el } from '../dom/el';
import { tableElement, type Cell, type Column } from '../dom/table';
import type { CheckPair } from '../page_data';
import { bareName, figuresOf, flattened, reasonOfAbsence, shortUnit, valueOf, type Source } from '../text/figures';
import { beyondWords, brokenBy, brokenWords, type Broken } from '../text/limits';
import { chip, section } from './chip';
import { shots } from './given_up';
import { pairLink, type Scope } from './scope';

/** The figures that some pair has, the main ones first. */
export function names(scope: Scope, source: Source): string[] {
  const found = new Set<string>();
  for (const pair of scope.check.document.pairs) {
    for (const { name, value } of flattened(figuresOf(pair, source) ?? {})) if (value !== null) found.add(name);
  }
  const main = scope.check.main_figures.filter((name) => found.has(name));
  return [...main, ...[...found].filter((name) => !main.includes(name))];
}

function state(pair: CheckPair, broken: readonly Broken[]): Cell {
  if (pair.state !== 'finished') return { content: chip('given_up', 'given up'), value: 'given up' };
  if (broken.length === 0) return { content: chip('pass', 'finished'), value: 'finished' };
  const how = [...new Set(broken.map((each) => each.how))].join(', ');
  const names = el('small', {}, [...new Set(broken.map(({ name }) => name))].join(', '));
  return { content: el('span', {}, chip('fail', how), names), value: brokenWords(broken) };
}

function note(pair: CheckPair): string {
  if (pair.reason) return pair.reason.text;
  return pair.carried.length > 0 ? `carries ${pair.carried.join(', ')}` : '';
}

const statistics = [
  ['mean', 'Mean'],
  ['sd', 'Standard deviation'],
  ['min', 'Smallest'],
  ['max', 'Largest'],
] as const;

/** What the document says of all finished pairs together. */
function foot(scope: Scope, figures: string[]): Cell[][] {
  const { summary } = scope.check.document;
  const known = scope.source === 'refined' ? summary.refined?.figures : summary.figures;
  if (!known || summary.finished === 0 || figures.length === 0) return [];
  return statistics.map(([key, title]): Cell[] => [
    title,
    '',
    ...figures.map((name): Cell => {
      const found = known[name];
      if (!found) return '';
      const full = `summary.${name}.${key}`;
      return {
        name: full,
        pair: null,
        check: scope.number + 1,
        value: found[key],
        refined: scope.source === 'refined',
      };
    }),
    '',
    '',
  ]);
}

/** A run that ended before its last pair: what it ended with stands where the pair would. */
function endedBehind({ check }: Scope): HTMLElement | null {
  const { status, pairs } = check.document;
  const early = pairs.length === 0 || check.finished_text.includes('then the run ended');
  if (status.name === 'success' || status.text === '' || !early) return null;
  const last = pairs[pairs.length - 1];
  const where = last
    ? `Behind pair ${last.index} the run ended: `
    : 'The run ended with its first pair, or before it: ';
  const words = el('p', { class: 'note error' }, where, status.text);
  if (!check.ended_at) return words;
  return el(
    'div',
    {},
    words,
    el('div', { class: 'grid' }, ...shots(check.ended_at, { left: '', right: '' }, 'What is found in the')),
  );
}

/** All pairs with all figures. */
export function pairsTable(scope: Scope): HTMLElement {
  const { source, explanations, number } = scope;
  const { pairs, limits } = scope.check.document;
  const figures = names(scope, source);
  const columns: Column[] = [
    { title: 'Pair', numbers: true },
    { title: 'State' },
    ...figures.map((name) => ({
      title: explanations.title(name),
      below: `${name}${explanations.unit(name) && `, ${shortUnit(explanations.unit(name))}`}`,
      hint: explanations.of(bareName(name)).text,
      numbers: true,
      more: !scope.check.main_figures.slice(0, 6).includes(name),
    })),
    { title: 'Pictures', more: true },
    { title: 'Note', more: true },
  ];
  const broken = pairs.map((pair) => brokenBy(limits, pair));
  const rows = pairs.map((pair, at) => [
    { content: el('a', { href: pairLink(scope, pair.index) }, String(pair.index)), value: pair.index },
    state(pair, broken[at] ?? []),
    ...figures.map((name) => {
      const value = valueOf(pair, source, name);
      return {
        name,
        pair: pair.index,
        check: number + 1,
        value,
        refined: source === 'refined',
        absence: reasonOfAbsence(pair, source, name),
        over: beyondWords(broken[at] ?? [], name, source) !== '',
      };
    }),
    {
      content: el('span', {}, el('bdi', {}, pair.left), ', ', el('bdi', {}, pair.right)),
      value: `${pair.left}, ${pair.right}`,
    },
    note(pair),
  ]);
  const from = source === 'refined' ? ', from refined centres' : '';
  return section(
    'pairs',
    `All pairs${from}`,
    endedBehind(scope),
    pairs.length === 0
      ? el('p', {}, 'No pair was finished.')
      : tableElement({
          caption: `All pairs with all figures${from}`,
          columns,
          rows,
          foot: foot(scope, figures),
          rowClass: (row) => (pairs[row]?.state === 'finished' ? '' : 'given-up'),
          sortable: true,
          headed: true,
        }),
  );
}
