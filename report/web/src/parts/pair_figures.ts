import { el } from '../dom/el';
import { tableElement, type Cell } from '../dom/table';
import { figureValue, type ShownFigure } from '../dom/value';
import { figuresOf, flattened, reasonOfAbsence, shortUnit, uncertaintyOf, valueOf, type Source } from '../text/figures';
import { beyondWords, brokenBy, type Broken } from '../text/limits';
import { between, error } from '../text/number';
import { icon } from '../dom/icon';
import { isFrame } from './pair_views';
import type { PairScope } from './scope';

export function pairFigure(scope: PairScope, name: string, source: Source): ShownFigure {
  const { pair, explanations } = scope;
  return {
    name,
    pair: pair.index,
    check: scope.number + 1,
    value: valueOf(pair, source, name),
    refined: source === 'refined',
    sd: uncertaintyOf(pair, source, name)?.sd ?? null,
    unit: shortUnit(explanations.unit(name)),
    absence: reasonOfAbsence(pair, source, name),
  };
}

function tile(scope: PairScope, name: string, broken: readonly Broken[]): HTMLElement {
  const said = (source: Source): string => beyondWords(broken, name, source);
  const told = (source: Source): HTMLElement | false =>
    said(source) !== '' && el('span', { class: 'hidden-text' }, ` ${said(source)}`);
  const marked = said('refined') !== '' && el('span', { class: 'over-text' }, icon('fail'), ' ');
  return el(
    'div',
    { class: `tile ${said('library') ? 'over' : ''} ${said('refined') ? 'refined-over' : ''}` },
    el(
      'dt',
      { title: scope.explanations.of(name).text },
      said('library') !== '' && icon('fail'),
      scope.explanations.title(name),
      el('small', {}, name),
    ),
    el('dd', {}, figureValue(pairFigure(scope, name, 'library')), told('library')),
    scope.pair.refined &&
      el(
        'dd',
        { class: 'refined' },
        marked,
        'refined ',
        figureValue(pairFigure(scope, name, 'refined')),
        told('refined'),
      ),
  );
}

/** As many as stand in one row beside the count of the dots; all figures are below. */
const mostTiles = 5;

/** The first of the main figures, and behind them others by which the pair breaks a limit. */
function tileNames(scope: PairScope, broken: readonly Broken[]): string[] {
  const measured = broken.filter(({ how }) => how !== 'not measured').map(({ figure }) => figure);
  return [...new Set([...scope.check.main_figures.slice(0, mostTiles), ...measured])];
}

/** The figures that matter first. */
export function tiles(scope: PairScope): HTMLElement {
  const { found } = scope.pair;
  const dots = scope.details?.points?.id.length;
  const { points } = scope.check.document.board;
  const broken = brokenBy(scope.check.document.limits, scope.pair);
  return el(
    'dl',
    { class: 'tiles' },
    found &&
      !isFrame(scope) &&
      el(
        'div',
        { class: 'tile' },
        el('dt', {}, 'Dots found', el('small', {}, 'left, right')),
        el('dd', {}, el('span', { class: 'value' }, `${found.left}, ${found.right}`), el('small', {}, ` of ${points}`)),
        dots !== undefined && el('dd', { class: 'refined' }, `${dots} in both`),
      ),
    ...tileNames(scope, broken).map((name) => tile(scope, name, broken)),
  );
}

function exact(scope: PairScope, name: string, source: Source): Cell {
  const figure = pairFigure(scope, name, source);
  const text = figure.value === null ? `– (${figure.absence})` : String(figure.value);
  return {
    content: el(
      'span',
      {
        'data-figure': name,
        'data-pair': scope.pair.index,
        'data-check': figure.check,
        'data-source': source,
        'data-value': String(figure.value),
      },
      text,
    ),
    value: figure.value,
  };
}

function interval(scope: PairScope, name: string, source: Source): Cell[] {
  const known = uncertaintyOf(scope.pair, source, name);
  if (!known) return ['', ''];
  const { sd, low95: low, high95: high } = known;
  const of = { 'data-certain': name, 'data-source': source };
  const ends = { ...of, 'data-low': String(low), 'data-high': String(high) };
  return [
    sd === null ? '–' : { content: el('span', { ...of, 'data-sd': String(sd) }, error(sd)), value: sd },
    low === null || high === null
      ? '–'
      : { content: el('span', ends, between(low, high)), value: low, copied: [low, high] },
  ];
}

/** Every figure of the pair with all its digits. */
export function allFigures(scope: PairScope): HTMLElement {
  const { pair, explanations } = scope;
  const names = flattened(figuresOf(pair, 'library') ?? {}).map(({ name }) => name);
  const more = flattened(pair.refined?.figures ?? {})
    .map(({ name }) => name)
    .filter((name) => !names.includes(name));
  const refined = pair.refined !== undefined;
  const table = tableElement({
    caption: `All figures of pair ${pair.index}`,
    columns: [
      { title: 'Figure' },
      { title: 'Value', numbers: true },
      { title: '±', hint: 'Standard error', numbers: true },
      { title: '95 % interval', numbers: true, copied: ['from', 'to'] },
      ...(refined
        ? [
            { title: 'Refined', numbers: true },
            { title: '±', below: 'refined', hint: 'Standard error', numbers: true },
            { title: '95 % interval', below: 'refined', numbers: true, copied: ['from', 'to'] },
          ]
        : []),
      { title: 'Unit' },
      { title: 'Meaning' },
    ],
    rows: [...names, ...more].map((name) => [
      name,
      exact(scope, name, 'library'),
      ...interval(scope, name, 'library'),
      ...(refined ? [exact(scope, name, 'refined'), ...interval(scope, name, 'refined')] : []),
      explanations.unit(name),
      explanations.meaning(name),
    ]),
    headed: true,
    sortable: true,
  });
  return el(
    'details',
    { class: 'card' },
    el('summary', {}, `All figures of pair ${pair.index}, with every digit`),
    table,
  );
}
