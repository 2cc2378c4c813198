import { framed, type FramedPlot } from '../../plots/base';
import { plain, unitText } from '../../plots/numbers';
import type { PlotContext } from '../../plots/plot';
import { halo, svg } from '../../plots/svg';
import type { Moments } from '../statistics/moments';

export interface SpreadView {
  unit: string;
  from: number;
  step: number;
  counts: readonly number[];
  moments: Moments;
  lower: number | null;
  upper: number | null;
}

/** How often which value, against the limit; what lies farther out is counted in the outer bars. */
export function spreadBars(view: SpreadView, context: PlotContext): SVGSVGElement {
  const { from, step, counts } = view;
  const to = from + step * counts.length;
  const plot = framed({
    width: context.width,
    height: 230,
    x: { from, to, label: unitText(view.unit) },
    y: { from: 0, to: 1.1 * Math.max(1, ...counts), label: 'Sets', whole: true },
    marks: [],
  });
  counts.forEach((count, k) => {
    if (count === 0) return;
    const [low, high] = [from + k * step, from + (k + 1) * step];
    const [left, top] = [plot.x(low), plot.y(count)];
    const slack = step * 1e-6;
    const over =
      (view.upper !== null && low >= view.upper - slack) || (view.lower !== null && high <= view.lower + slack);
    const box = { x: left + 0.5, y: top, width: Math.max(0.5, plot.x(high) - left - 1), height: plot.y(0) - top };
    const look = over ? { fill: 'var(--over)' } : { fill: 'var(--within)', 'fill-opacity': 0.55 };
    plot.svg.append(svg('rect', { ...box, ...look }));
  });
  drawNormal(view, plot);
  for (const bound of [view.lower, view.upper])
    if (bound !== null && bound >= from && bound <= to) drawBound(view, plot, bound);
  return plot.svg;
}

/** What is as wide would lie so if it were noise alone. */
function drawNormal({ moments: { n, mean, sd }, from, step, counts }: SpreadView, plot: FramedPlot): void {
  if (n < 2 || !(sd > 0)) return;
  const points = Array.from({ length: 101 }, (_, k) => {
    const value = from + (k / 100) * step * counts.length;
    const dense = (n * step * Math.exp(-0.5 * ((value - mean) / sd) ** 2)) / (sd * Math.sqrt(2 * Math.PI));
    return `${plot.x(value).toFixed(1)} ${Math.max(plot.box.y, plot.y(dense)).toFixed(1)}`;
  });
  plot.svg.append(svg('path', { d: `M${points.join('L')}`, fill: 'none', stroke: 'var(--text)', 'stroke-width': 1.2 }));
}

function drawBound({ unit }: SpreadView, { svg: drawing, box, x }: FramedPlot, bound: number): void {
  const at = x(bound);
  const right = at < box.x + box.width / 2;
  drawing.append(
    svg('path', {
      d: `M${at} ${box.y}v${box.height}`,
      stroke: 'var(--over)',
      'stroke-width': 1.5,
      'stroke-dasharray': '5 4',
    }),
    svg(
      'text',
      { x: at + (right ? 4 : -4), y: box.y + 4, 'text-anchor': right ? 'start' : 'end', fill: 'var(--over)', ...halo },
      `limit ${plain(bound)} ${unitText(unit)}`,
    ),
  );
}
