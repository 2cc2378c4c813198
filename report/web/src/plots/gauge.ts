import { fixed, present } from './numbers';
import { plotted } from './base';
import type { PlotContext } from './plot';
import { svg } from './svg';

/** A value against its limit at a glance. */
export interface GaugeView {
  value: number | null;
  limit: number;
  /** What is allowed. */
  sense: 'at most' | 'at least';
  holds: boolean | null;
  /** Interval of the value where it is known. */
  low: number | null;
  high: number | null;
}

const height = 34;

/** A bar from zero with the limit across; the part beyond what is allowed is hatched ground, so that it needs no colour. */
export function limitGauge(view: GaugeView, context: PlotContext): SVGSVGElement {
  const { width } = context;
  const numbers = present([0, view.value, view.limit * 1.35, view.low, view.high]);
  const from = Math.min(...numbers);
  const to = Math.max(...numbers);
  const drawing = plotted({ width, height, margin: 0, marks: [] });
  const x = (value: number) => 6 + ((value - from) / (to - from || 1)) * (width - 12);
  const bad = view.sense === 'at most' ? [x(view.limit), width - 6] : [6, x(view.limit)];
  drawing.append(
    svg('rect', { x: 6, y: 10, width: width - 12, height: 12, rx: 2, fill: 'var(--grid)' }),
    hatched(bad[0] ?? 0, bad[1] ?? 0),
    ...bar(view, x),
    svg('path', { d: `M${x(view.limit)} 5v22`, stroke: 'var(--text)', 'stroke-width': 2.5 }),
  );
  return drawing;
}

function hatched(from: number, to: number): SVGElement {
  let d = '';
  for (let at = from; at + 6 < to; at += 6) d += `M${at.toFixed(1)} 22l6 -12`;
  return svg('path', { d, stroke: 'var(--faint)', 'stroke-opacity': 0.55, 'stroke-width': 1 });
}

function bar({ value, holds, low, high }: GaugeView, x: (value: number) => number): SVGElement[] {
  if (value === null) {
    return [svg('text', { x: 12, y: 20, 'text-anchor': 'start', fill: 'var(--faint)' }, '\u2013')];
  }
  const colour = holds === false ? 'var(--over)' : 'var(--within)';
  const [left, right] = [Math.min(x(0), x(value)), Math.max(x(0), x(value))];
  const parts: SVGElement[] = [
    svg('rect', { x: left, y: 12, width: Math.max(right - left, 1), height: 8, fill: colour }),
    sign(x(value), holds, colour),
  ];
  if (low !== null && high !== null) {
    const d = `M${x(low)} 16H${x(high)}M${x(low)} 12v8M${x(high)} 12v8`;
    parts.push(svg('path', { d, stroke: 'var(--text)', 'stroke-width': 1.3, 'data-interval': fixed(high - low, 6) }));
  }
  return parts;
}

/** A dot where it holds, a cross where it does not. */
function sign(x: number, holds: boolean | null, colour: string): SVGElement {
  if (holds !== false) return svg('circle', { cx: x, cy: 16, r: 5, fill: colour, stroke: 'var(--card)' });
  const d = `M${x - 5} 11l10 10m0 -10l-10 10`;
  return svg(
    'g',
    {},
    svg('path', { d, stroke: 'var(--card)', 'stroke-width': 6 }),
    svg('path', { d, stroke: colour, 'stroke-width': 3 }),
  );
}
