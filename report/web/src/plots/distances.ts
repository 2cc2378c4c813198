import * as Plot from '@observablehq/plot';
import type { DistanceBin } from '../page_data';
import { framed } from './base';
import { keyLegend, keyLegendHeight } from './legend';
import { rangeOf, withUnit } from './numbers';
import type { PlotContext } from './plot';
import { svg } from './svg';

/** Errors of the distances between dots, by the true distance: what grows with the distance is no noise. */
export interface DistancesView {
  unit: string;
  bins: readonly DistanceBin[];
}

export function distanceErrors(view: DistancesView, context: PlotContext): SVGSVGElement {
  const keys = [
    { sign: svg('circle', { r: 4, fill: 'var(--within)' }), text: 'mean' },
    { sign: svg('rect', { x: -4.5, y: -7, width: 9, height: 14, fill: 'var(--band)' }), text: '\u00b1 scatter' },
    { sign: svg('path', { d: 'M0 -8v16', stroke: 'var(--dot)', 'stroke-width': 1.5 }), text: 'smallest to largest' },
  ];
  const below = keyLegendHeight(keys, context.width - 76);
  const height = Math.round(Math.min(300, Math.max(200, context.width * 0.5))) + below;
  const [from, to] = rangeOf([0, ...view.bins.flatMap((bin) => [bin.min, bin.max])], 0.06);
  const [, far] = rangeOf([0, ...view.bins.map((bin) => bin.to)], 0.02);
  const middle = (bin: DistanceBin) => (bin.from + bin.to) / 2;
  const plot = framed({
    width: context.width,
    height,
    below,
    x: { from: 0, to: far, label: withUnit('True distance', view.unit) },
    y: { from, to, label: withUnit('Measured less true distance', view.unit), plus: true },
    marks: [
      Plot.ruleY([0], { stroke: 'var(--faint)' }),
      Plot.ruleX(view.bins, { x: middle, y1: 'min', y2: 'max', stroke: 'var(--dot)', strokeWidth: 1.5 }),
      Plot.ruleX(view.bins, {
        x: middle,
        y1: (bin: DistanceBin) => bin.mean - bin.sd,
        y2: (bin: DistanceBin) => bin.mean + bin.sd,
        stroke: 'var(--band)',
        strokeWidth: 9,
      }),
      Plot.lineY(view.bins, { x: middle, y: 'mean', stroke: 'var(--within)', strokeWidth: 1.5 }),
      Plot.dot(view.bins, { x: middle, y: 'mean', r: 4, fill: 'var(--within)' }),
    ],
  });
  plot.svg.append(keyLegend(keys, plot.box.x, height - below, plot.box.width));
  return plot.svg;
}
