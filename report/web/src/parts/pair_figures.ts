import { el } from '../dom/el';
import { tableElement, type Cell } from '../dom/table';
import { figureValue, type ShownFigure } from '../dom/value';
import { figuresOf, flattened, reasonOfAbsence, shortUnit, valueOf, type Source } from '../text/figures';
import { exceeds, rulesOn } from '../text/limits';
import { between, error } from '../text/number';
import { icon } from '../dom/icon';
import { isFrame } from './pair_views';
import type { PairScope } from './scope';

export function pairFigure(scope: PairScope, name: string, source: Source): ShownFigure {
  const { pair, explanations } = scope;
  const sd = source === 'library' ? pair.uncertainty?.[name]?.sd : undefined;
  return {
    name,
    pair: pair.index,
    check: scope.number + 1,
    value: valueOf(pair, source, name),
    refined: source === 'refined',
    sd: sd ?? null,
    unit: shortUnit(explanations.unit(name)),
    absence: reasonOfAbsence(pair, source, name),
  };
}

export function isOver(
  scope: { check: PairScope['check'] },
  name: string,
  value: number | null,
  source: Source,
): boolean {
  return value !== null && rulesOn(scope.check.document.limits, name, source).some((rule) => exceeds(rule, value));
}

function tile(scope: PairScope, name: string): HTMLElement {
  const figure = pairFigure(scope, name, 'library');
  const over = isOver(scope, name, figure.value, 'library');
  return el(
    'div',
    { class: `tile ${over ? 'over' : ''}` },
    el(
      'dt',
      { title: scope.explanations.of(name).text },
      over && icon('fail'),
      scope.explanations.title(name),
      el('small', {}, name),
    ),
    el('dd', {}, figureValue(figure), over && el('span', { class: 'hidden-text' }, ' over the limit')),
    scope.pair.refined && el('dd', { class: 'refined' }, 'refined ', figureValue(pairFigure(scope, name, 'refined'))),
  );
}

/** The figures that matter first. */
export function tiles(scope: PairScope): HTMLElement {
  const { found } = scope.pair;
  const dots = scope.details?.points?.id.length;
  const { points } = scope.check.document.board;
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
    ...scope.check.main_figures.map((name) => tile(scope, name)),
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

function interval(scope: PairScope, name: string): Cell[] {
  const known = scope.pair.uncertainty?.[name];
  if (!known) return ['', ''];
  const { sd, low95: low, high95: high } = known;
  return [
    sd === null ? '–' : { content: document.createTextNode(error(sd)), value: sd },
    low === null || high === null ? '–' : between(low, high),
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
      { title: '95 % interval', numbers: true },
      ...(refined ? [{ title: 'Refined', numbers: true }] : []),
      { title: 'Unit' },
      { title: 'Meaning' },
    ],
    rows: [...names, ...more].map((name) => [
      name,
      exact(scope, name, 'library'),
      ...interval(scope, name),
      ...(refined ? [exact(scope, name, 'refined')] : []),
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
