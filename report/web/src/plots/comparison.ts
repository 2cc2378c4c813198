import * as Plot from '@observablehq/plot';
import { letterWidth, plotted, fontSize } from './base';
import { fixed, plain, present, rangeOf, ticksOf, withUnit } from './numbers';
import type { PlotContext } from './plot';

/** One figure of several checks with its intervals, one line a check. */
export interface ComparisonView {
  figure: string;
  unit: string;
  checks: readonly ComparedCheck[];
  limit: number | null;
}

export interface ComparedCheck {
  title: string;
  mean: number | null;
  low: number | null;
  high: number | null;
  /** Against the first: 'none' is drawn hollow, as there is nothing to see in it. */
  judged: 'more' | 'less' | 'none' | 'unknown' | 'first';
}

const symbols = { more: 'triangle', less: 'triangle2', none: 'circle', unknown: 'circle', first: 'square' } as const;

export function comparedFigure(view: ComparisonView, context: PlotContext): SVGSVGElement {
  const { checks, limit } = view;
  const numbers = checks.flatMap((check) => present([check.mean, check.low, check.high]));
  const [from, to] = rangeOf([...numbers, ...(limit === null ? [] : [limit])], 0.08);
  const room = Math.max(
    40,
    Math.min(context.width * 0.35, letterWidth * Math.max(...checks.map((c) => c.title.length))),
  );
  const ticks = ticksOf(from, to, Math.max(2, (context.width - room) / 80));
  const titles = checks.map((check, i) => `${i + 1} ${check.title}`);
  const there = checks.map((check, i) => ({ ...check, line: titles[i] ?? '' })).filter((check) => check.mean !== null);
  const x = { domain: [from, to], label: null };
  return plotted({
    width: context.width,
    height: (limit === null ? 50 : 64) + 28 * checks.length,
    marginLeft: room + 30,
    marginRight: 16,
    marginTop: limit === null ? 8 : 22,
    marginBottom: 42,
    x,
    y: { type: 'band', domain: titles, label: null },
    symbol: { range: ['circle'] },
    marks: [
      Plot.gridX(ticks.values, { stroke: 'var(--grid)', strokeOpacity: 1 }),
      Plot.axisY(titles, {
        fontSize,
        tickSize: 0,
        label: null,
        color: 'var(--text)',
        tickFormat: (title: string) => clipped(title, room),
      }),
      Plot.axisX(ticks.values, {
        fontSize,
        color: 'var(--faint)',
        tickFormat: (value: number) => fixed(value, ticks.decimals),
        label: null,
      }),
      limit === null ? null : Plot.ruleX([limit], { stroke: 'var(--over)', strokeDasharray: '5 4', strokeWidth: 1.5 }),
      limit === null
        ? null
        : Plot.text([`limit ${plain(limit)}`], {
            x: () => limit,
            frameAnchor: 'top',
            dy: -14,
            lineAnchor: 'middle',
            fontSize,
            fill: 'var(--over)',
          }),
      Plot.ruleY(
        there.filter((check) => check.low !== null && check.high !== null),
        { y: 'line', x1: 'low', x2: 'high', stroke: 'var(--band)', strokeWidth: 8 },
      ),
      ...there.map((check) =>
        Plot.dot([check], {
          x: 'mean',
          y: 'line',
          r: 5,
          symbol: symbols[check.judged],
          fill: check.judged === 'none' ? 'var(--card)' : 'var(--within)',
          stroke: 'var(--within)',
          strokeWidth: 2,
        }),
      ),
      Plot.text([withUnit(view.figure, view.unit)], {
        frameAnchor: 'bottom',
        dy: 34,
        lineAnchor: 'middle',
        fontSize,
        fill: 'var(--faint)',
      }),
    ],
  });
}

function clipped(title: string, room: number): string {
  const letters = Math.floor(room / letterWidth) + 2;
  return title.length <= letters ? title : `${title.slice(0, letters - 1)}\u2026`;
}
