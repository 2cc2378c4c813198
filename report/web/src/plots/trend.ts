import { el } from '../dom/el';
import { framed, type FramedPlot } from './base';
import { labelPlace } from './label_place';
import { plain, present, rangeOf, short, unitText } from './numbers';
import type { PlotContext } from './plot';
import { halo, svg } from './svg';

/** One figure over the pairs, in the order in which they were taken. */
export interface TrendView {
  name: string;
  unit: string;
  pairs: readonly TrendPair[];
  limits: readonly TrendLimit[];
  /** The pair that is shown below, as `index` of one in the list. */
  chosen: number | null;
  choose(index: number): void;
}

export interface TrendLimit {
  value: number;
  sense: 'at most' | 'at least';
  /** Holds for the size: on both sides of zero. */
  absolute: boolean;
}

export interface TrendPair {
  index: number;
  /** null: not measured, or not finite. */
  value: number | null;
  low: number | null;
  high: number | null;
  givenUp: boolean;
  /** Says that a limit does not hold in this pair. */
  over: boolean;
}

const height = 190;

export function trendOverPairs(view: TrendView, context: PlotContext): HTMLElement {
  const { pairs } = view;
  const levels = levelsOf(view).map(({ value }) => value);
  const values = pairs.flatMap((pair) => present([pair.value, pair.low, pair.high]));
  const [from, to] = rangeOf([0, ...values, ...levels], 0.08);
  const least = Math.min(...values, ...levels, 0);
  const first = pairs[0]?.index ?? 0;
  const last = pairs[pairs.length - 1]?.index ?? 0;
  const plot = framed({
    width: context.width,
    height,
    x: { from: first - 0.7, to: last + 0.7, label: 'Pair', ticks: pairTicks(first, last, context.width) },
    y: { from: least < 0 ? from : 0, to, label: unitText(view.unit) },
    marks: [],
  });
  const ground = svg('g', {});
  plot.svg.prepend(ground);
  drawChosen(ground, view, plot);
  plot.svg.append(...bands(pairs, plot), ...limitLines(view, plot), ...line(pairs, plot), ...signs(view, plot));
  return interactive(view, plot, ground, context);
}

/** Whole numbers only: there is no pair 2.5. */
function pairTicks(first: number, last: number, width: number): number[] {
  const room = Math.max(2, Math.floor((width - 60) / 44));
  const step = [1, 2, 5, 10, 20, 50, 100, 200, 500, 1000, 5000].find((s) => (last - first) / s <= room) ?? 10000;
  const ticks: number[] = [];
  for (let at = Math.ceil(first / step) * step; at <= last; at += step) ticks.push(at);
  return ticks;
}

function drawChosen(ground: SVGGElement, { chosen }: TrendView, { box, x }: FramedPlot): void {
  const width = Math.min(40, Math.max(6, x(1) - x(0)));
  const place = { x: x(chosen ?? 0) - width / 2, y: box.y, width, height: box.height };
  ground.replaceChildren(
    ...(chosen === null ? [] : [svg('rect', { ...place, fill: 'var(--band)', 'fill-opacity': 0.55 })]),
  );
}

/** Runs of neighbours that have what is asked for: a line must not bridge a pair that has no value. */
function runs(pairs: readonly TrendPair[], has: (pair: TrendPair) => boolean): TrendPair[][] {
  const lists: TrendPair[][] = [[]];
  for (const pair of pairs) {
    if (has(pair)) lists[lists.length - 1]?.push(pair);
    else lists.push([]);
  }
  return lists.filter((list) => list.length > 0);
}

function bands(pairs: readonly TrendPair[], { x, y }: FramedPlot): SVGElement[] {
  return runs(pairs, (pair) => pair.low !== null && pair.high !== null).map((run) => {
    const edge = (value: (pair: TrendPair) => number | null) =>
      run.map((pair) => `${x(pair.index).toFixed(1)} ${y(value(pair) ?? 0).toFixed(1)}`);
    const top = edge((pair) => pair.high);
    const bottom = edge((pair) => pair.low);
    if (run.length === 1)
      return svg('path', { d: `M${top[0]}L${bottom[0]}`, stroke: 'var(--band)', 'stroke-width': 7 });
    return svg('path', { d: `M${[...top, ...bottom.reverse()].join('L')}Z`, fill: 'var(--band)', 'fill-opacity': 0.8 });
  });
}

function line(pairs: readonly TrendPair[], { x, y }: FramedPlot): SVGElement[] {
  const look = { fill: 'none', stroke: 'var(--within)', 'stroke-width': 1.5, 'stroke-linejoin': 'round' };
  return runs(pairs, (pair) => pair.value !== null).map((run) => {
    const points = run.map((pair) => `${x(pair.index).toFixed(1)} ${y(pair.value ?? 0).toFixed(1)}`);
    return svg('path', { d: `M${points.join('L')}`, ...look });
  });
}

/** Round within, crosses over, marks on the axis for pairs that were given up. Hundreds of round ones would only thicken
 * the line. */
function signs({ pairs, unit }: TrendView, plot: FramedPlot): SVGElement[] {
  const few = pairs.length <= 120;
  return pairs.flatMap((pair) => {
    const drawn = sign(pair, plot, few);
    const told = pair.givenUp ? 'given up' : `${short(pair.value)} ${unitText(unit)}`;
    drawn?.append(svg('title', {}, `pair ${pair.index}: ${told}`));
    return drawn ? [drawn] : [];
  });
}

function sign(pair: TrendPair, { x, y, box }: FramedPlot, few: boolean): SVGElement | null {
  const at = x(pair.index);
  if (pair.givenUp) {
    const low = box.y + box.height;
    return svg('path', { d: `M${at} ${low}l-5 -9h10z`, fill: 'var(--given-up)', stroke: 'var(--card)' });
  }
  if (pair.value === null || !(few || pair.over)) return null;
  const up = y(pair.value);
  if (!pair.over) return svg('circle', { cx: at, cy: up, r: 2.8, fill: 'var(--within)' });
  return svg('path', { d: `M${at - 4} ${up - 4}l8 8m0 -8l-8 8`, stroke: 'var(--over)', 'stroke-width': 2.2 });
}

/** A limit on the size has its other side where values go below zero. */
function levelsOf({ limits, pairs }: TrendView): TrendLimit[] {
  const below = pairs.some(({ value }) => value !== null && value < 0);
  return limits.flatMap((limit) => (limit.absolute && below ? [limit, { ...limit, value: -limit.value }] : [limit]));
}

function limitLines(view: TrendView, plot: FramedPlot): SVGElement[] {
  const drawn = levelsOf(view).map((limit) => limitLine(limit, view, plot));
  // No line goes through a name.
  return [...drawn.map(([line]) => line), ...drawn.map(([, name]) => name)];
}

function limitLine(limit: TrendLimit, { pairs, unit }: TrendView, plot: FramedPlot): [SVGElement, SVGElement] {
  const { x, y, box } = plot;
  const at = y(limit.value);
  const text = `${limit.sense === 'at most' ? 'limit' : 'limit, at least'} ${plain(limit.value)} ${unitText(unit)}`;
  const shown = pairs.map(({ index, value }) => ({ x: x(index), y: y(value ?? NaN) }));
  const place = labelPlace(text, at, box, shown);
  return [
    svg('path', {
      d: `M${box.x} ${at}h${box.width}`,
      stroke: 'var(--over)',
      'stroke-dasharray': '5 4',
      'stroke-width': 1.5,
    }),
    svg('text', { ...place, 'text-anchor': 'start', fill: 'var(--over)', ...halo }, text),
  ];
}

function interactive(view: TrendView, plot: FramedPlot, ground: SVGGElement, context: PlotContext): HTMLElement {
  const label = `${view.name} over the pairs. Left and right choose a pair, which is shown below.`;
  const focus = context.printing ? {} : { tabindex: 0, role: 'application', 'aria-label': label };
  const element = el('div', { class: 'plot-stage', ...focus }, plot.svg);
  if (context.printing) return element;
  let chosen = view.chosen;
  const choose = (index: number | undefined) => {
    if (index === undefined || index === chosen) return;
    chosen = index;
    drawChosen(ground, { ...view, chosen }, plot);
    view.choose(index);
  };
  const { signal } = context;
  element.addEventListener('click', (event) => choose(pairAt(view, plot, event)), { signal });
  element.addEventListener(
    'keydown',
    (event) => {
      const to = keyedPair(view.pairs, chosen, event);
      if (to === null) return;
      event.preventDefault();
      choose(to);
    },
    { signal },
  );
  return element;
}

function pairAt(view: TrendView, plot: FramedPlot, event: MouseEvent): number | undefined {
  const rect = plot.svg.getBoundingClientRect();
  const place = ((event.clientX - rect.left) * plot.svg.width.baseVal.value) / (rect.width || 1);
  const away = (pair: TrendPair) => Math.abs(plot.x(pair.index) - place);
  let best = view.pairs[0];
  for (const pair of view.pairs) if (best && away(pair) < away(best)) best = pair;
  return best?.index;
}

function keyedPair(pairs: readonly TrendPair[], chosen: number | null, event: KeyboardEvent): number | null {
  if (event.ctrlKey || event.metaKey || event.altKey) return null;
  const at = pairs.findIndex((pair) => pair.index === chosen);
  const to = { ArrowLeft: at - 1, ArrowRight: at + 1, Home: 0, End: pairs.length - 1 }[event.key];
  if (to === undefined) return null;
  return pairs[Math.min(pairs.length - 1, Math.max(0, to))]?.index ?? null;
}
