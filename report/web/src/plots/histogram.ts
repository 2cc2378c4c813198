import { el } from '../dom/el';
import { binsOf, type Bins } from './bins';
import { boundColour, boundText, strictest, type Bound } from './bounds';
import { framed, letterWidth, type FramedPlot } from './base';
import { present, rangeOf, short, unitText, withUnit, type Numbers } from './numbers';
import type { Spread } from '../page_data';
import type { PlotContext } from './plot';
import { RangeBrush } from './range_brush';
import { halo, svg } from './svg';

/** How often a value occurs among the dots. */
export interface HistogramView {
  name: string;
  unit: string;
  ids: readonly number[];
  values: Numbers;
  spread: Spread | null;
  /** Marked on both sides of zero. */
  bounds: readonly Bound[];
  /** Draws the normal distribution of the same mean and standard deviation: right for what should be noise. */
  normal: boolean;
}

const most = 300;

export function histogram(view: HistogramView, context: PlotContext): HTMLElement {
  const values = present(view.values);
  const [from, to] = rangeOf(values, 0.02);
  const bins = binsOf(view.values, from, to, Math.min(60, Math.max(12, Math.round(context.width / 9))));
  const height = Math.round(Math.min(most, Math.max(190, context.width * 0.62)));
  const x = { from: bins.from, to: bins.to, label: withUnit(view.name, view.unit) };
  const highest = Math.max(1, ...bins.dots.map((dots) => dots.length), ...normalOf(view, bins).map(([, y]) => y));
  const y = { whole: true, from: 0, to: 1.08 * highest, label: 'Dots' };
  const plot = framed({ width: context.width, height, x, y, marks: [] });
  const bars = svg('g', {});
  const chosen = svg('g', {});
  plot.svg.append(bars, chosen);
  drawBars(bars, bins, view, plot);
  drawGuides(plot, view, bins);
  const label = `${view.name}, how often. Left and right go from bar to bar, with Shift they select a range, Escape clears.`;
  const brush = new RangeBrush(plot, bins, view.ids, label, context);
  const show = () => drawChosen(bars, chosen, bins, view, plot, context);
  context.selection.subscribe(show, context.signal);
  show();
  return el('div', {}, brush.element);
}

function bar(plot: FramedPlot, bins: Bins, place: number, count: number, look: Record<string, string | number>) {
  const left = plot.x(bins.from + place * bins.step);
  const width = plot.x(bins.from + (place + 1) * bins.step) - left;
  const top = plot.y(count);
  const box = { x: left + 0.5, y: top, width: Math.max(width - 1, 0.5), height: Math.max(plot.y(0) - top, 0) };
  return svg('rect', { ...box, ...look });
}

function drawBars(group: SVGGElement, bins: Bins, view: HistogramView, plot: FramedPlot): void {
  const limit = strictest(view.bounds);
  bins.dots.forEach((dots, place) => {
    const over = dots.filter((i) => limit !== null && Math.abs(view.values[i] ?? 0) > limit).length;
    if (dots.length) group.append(bar(plot, bins, place, dots.length, { fill: 'var(--within)', 'fill-opacity': 0.55 }));
    if (over) group.append(bar(plot, bins, place, over, { fill: 'var(--over)' }));
  });
}

/** The part of each bar that is brushed or marked stands before the bar, which fades. */
function drawChosen(
  bars: SVGGElement,
  group: SVGGElement,
  bins: Bins,
  view: HistogramView,
  plot: FramedPlot,
  { selection }: PlotContext,
): void {
  const { brushed, marked, hovered } = selection;
  bars.style.opacity = brushed ? '0.35' : '';
  const parts: SVGElement[] = [];
  bins.dots.forEach((dots, place) => {
    const count = brushed ? dots.filter((i) => brushed.has(view.ids[i] ?? -1)).length : 0;
    if (count) parts.push(bar(plot, bins, place, count, { fill: 'var(--mark)', 'fill-opacity': 0.75 }));
    const middle = plot.x(bins.from + (place + 0.5) * bins.step);
    const sign = dots.some((i) => marked.has(view.ids[i] ?? -1) || view.ids[i] === hovered);
    if (sign) {
      parts.push(svg('path', { d: `M${middle} ${plot.y(0)}l-5 9h10z`, fill: 'var(--mark)', stroke: 'var(--card)' }));
    }
  });
  group.replaceChildren(...parts);
}

/** Places of the normal distribution with as many dots in as wide bars; none where there is none to draw. */
function normalOf({ normal, spread }: HistogramView, bins: Bins): [value: number, dots: number][] {
  const { mean, sd, count } = spread ?? { mean: null, sd: null, count: 0 };
  if (!normal || mean === null || sd === null || sd <= 0) return [];
  return Array.from({ length: 161 }, (_, k) => {
    const value = bins.from + (k / 160) * (bins.to - bins.from);
    const dense = Math.exp(-0.5 * ((value - mean) / sd) ** 2) / (sd * Math.sqrt(2 * Math.PI));
    return [value, count * bins.step * dense];
  });
}

function drawGuides(plot: FramedPlot, view: HistogramView, bins: Bins): void {
  const normal = normalOf(view, bins);
  if (normal.length > 0) {
    const points = normal.map(([value, dots]) => `${plot.x(value).toFixed(1)} ${plot.y(dots).toFixed(1)}`);
    plot.svg.append(
      svg('path', { d: `M${points.join('L')}`, fill: 'none', stroke: 'var(--text)', 'stroke-width': 1.5 }),
    );
  }
  if (!view.normal) drawMedian(plot, view);
  // No line goes through a name.
  view.bounds.forEach((bound) => drawBound(plot, bound, bins));
  view.bounds.forEach((bound, line) => nameBound(plot, bound, view.unit, bins, line));
}

function drawMedian({ svg: drawing, box, x }: FramedPlot, { spread, unit }: HistogramView): void {
  if (spread === null || spread.median === null) return;
  const at = x(spread.median);
  drawing.append(
    svg('path', { d: `M${at} ${box.y}v${box.height}`, stroke: 'var(--text)', 'stroke-width': 1.5 }),
    svg(
      'text',
      { x: at + 5, y: box.y + 4, 'text-anchor': 'start', fill: 'var(--text)', ...halo },
      `median ${short(spread.median)} ${unitText(unit)}`,
    ),
  );
}

function seenOf({ value }: Bound, bins: Bins): number[] {
  return [value, -value].filter((each) => each >= bins.from && each <= bins.to);
}

function drawBound({ svg: drawing, box, x }: FramedPlot, bound: Bound, bins: Bins): void {
  const look = { 'stroke-width': 1.5, 'stroke-dasharray': bound.judges ? '5 4' : '2 3' };
  for (const value of seenOf(bound, bins))
    drawing.append(svg('path', { d: `M${x(value)} ${box.y}v${box.height}`, stroke: boundColour(bound), ...look }));
}

/** Each name stands on a line of its own. */
function nameBound({ svg: drawing, box, x }: FramedPlot, bound: Bound, unit: string, bins: Bins, line: number): void {
  const seen = seenOf(bound, bins)[0];
  if (seen === undefined) return;
  const at = x(seen);
  const text = boundText(bound, unit);
  const wide = text.length * letterWidth + 8;
  // The name stands inside the limit where there is room, as most bars end there, and not across its other side.
  const inside = wide < x(Math.abs(seen)) - Math.max(x(-Math.abs(seen)), box.x);
  const left = inside ? at > box.x + box.width / 2 : at + wide > box.x + box.width;
  const place = { x: at + (left ? -4 : 4), y: box.y + 4 + 14 * line, 'text-anchor': left ? 'end' : 'start' };
  drawing.append(svg('text', { ...place, fill: boundColour(bound), ...halo }, text));
}
