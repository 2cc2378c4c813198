import * as Plot from '@observablehq/plot';
import { letterWidth, plotted, fontSize } from './base';
import { fixed, plain, present, rangeOf, ticksOf, unitText, type Ticks } from './numbers';
import { keyLegend, keyLegendHeight, type Key } from './legend';
import type { PlotContext } from './plot';
import { circlePath, svg } from './svg';

/** One figure of several checks with its intervals, one line a check. */
export interface ComparisonView {
  unit: string;
  checks: readonly ComparedCheck[];
  limits: readonly number[];
}

export interface ComparedCheck {
  title: string;
  mean: number | null;
  low: number | null;
  high: number | null;
  /** Against the first: 'none' is drawn hollow, as there is nothing to see in it. */
  judged: 'more' | 'less' | 'none' | 'unknown' | 'first';
}

const symbols = { more: 'triangle', less: 'triangle', none: 'circle', unknown: 'circle', first: 'square' } as const;

interface Line extends ComparedCheck {
  line: string;
}

export function comparedFigure(view: ComparisonView, context: PlotContext): SVGSVGElement {
  const { checks, limits } = view;
  const longest = Math.max(...checks.map((check) => check.title.length));
  const room = Math.max(40, Math.min(context.width * 0.35, letterWidth * longest));
  // Numbered, as two checks may bear names that are cut to the same.
  const titles = checks.map((check, i) => `${i + 1} ${check.title}`);
  const lines = checks.map((check, i) => ({ ...check, line: titles[i] ?? '' })).filter((check) => check.mean !== null);
  const numbers = checks.flatMap((check) => present([check.mean, check.low, check.high]));
  const [from, to] = rangeOf([...numbers, ...limits], 0.08);
  const ticks = ticksOf(from, to, Math.max(2, (context.width - room) / 80));
  const keys = judgements(checks);
  const below = keys.length ? keyLegendHeight(keys, context.width - 16) : 0;
  const height = (limits.length === 0 ? 50 : 64) + 28 * checks.length + below;
  const drawing = plotted({
    width: context.width,
    height,
    marginLeft: room + 30,
    marginRight: 16,
    marginTop: limits.length === 0 ? 8 : 22,
    marginBottom: 42 + below,
    x: { domain: [from, to], label: null },
    y: { type: 'band', domain: titles, label: null },
    symbol: { range: ['circle'] },
    marks: [
      ...axes(ticks, titles, room),
      ...limitLines(limits),
      ...intervals(lines),
      Plot.text([unitText(view.unit)], {
        ...writing,
        frameAnchor: 'bottom',
        dy: 34,
        fill: 'var(--faint)',
      }),
    ],
  });
  drawing.append(keyLegend(keys, 8, height - below, context.width - 16));
  return drawing;
}

/** What the signs mean that are drawn. */
function judgements(checks: readonly ComparedCheck[]): Key[] {
  const solid = { fill: 'var(--within)' };
  const hollow = { fill: 'var(--card)', stroke: 'var(--within)', 'stroke-width': 2 };
  const signs: Record<Exclude<ComparedCheck['judged'], 'first'>, [string, Record<string, string | number>, string]> = {
    more: ['M0 -6l6 10h-12z', solid, 'more than the first'],
    less: ['M0 6l6 -10h-12z', solid, 'less than the first'],
    none: [circlePath(0, 0, 5), hollow, 'no difference'],
    unknown: [circlePath(0, 0, 5), solid, 'not known whether it differs'],
  };
  return (['more', 'less', 'none', 'unknown'] as const).flatMap((judged) => {
    const sign = signs[judged];
    if (!checks.some((check) => check.judged === judged && check.mean !== null)) return [];
    return [{ sign: svg('path', { d: sign[0], ...sign[1] }), text: sign[2] }];
  });
}

const writing = { fontSize, lineAnchor: 'middle' } as const;

function axes(ticks: Ticks, titles: string[], room: number): Plot.Markish[] {
  const across = { fontSize, color: 'var(--faint)', label: null };
  const down = { fontSize, color: 'var(--text)', label: null, tickSize: 0 };
  return [
    Plot.gridX(ticks.values, { stroke: 'var(--grid)', strokeOpacity: 1 }),
    Plot.axisY(titles, { ...down, tickFormat: (title: string) => clipped(title, room) }),
    Plot.axisX(ticks.values, { ...across, tickFormat: (value: number) => fixed(value, ticks.decimals) }),
  ];
}

function limitLines(limits: readonly number[]): Plot.Markish[] {
  if (limits.length === 0) return [];
  const name = { ...writing, x: (limit: number) => limit, frameAnchor: 'top', dy: -14, fill: 'var(--over)' } as const;
  const text = (limit: number) => `limit ${plain(limit)}`;
  return [
    Plot.ruleX(limits, { stroke: 'var(--over)', strokeDasharray: '5 4', strokeWidth: 1.5 }),
    Plot.text(limits, { ...name, text }),
  ];
}

function intervals(lines: Line[]): Plot.Markish[] {
  const known = lines.filter((check) => check.low !== null && check.high !== null);
  const look = { x: 'mean', y: 'line', r: 5, stroke: 'var(--within)', strokeWidth: 2 };
  return [
    Plot.ruleY(known, { y: 'line', x1: 'low', x2: 'high', stroke: 'var(--band)', strokeWidth: 8 }),
    ...lines.map((check) => {
      const fill = check.judged === 'none' ? 'var(--card)' : 'var(--within)';
      return Plot.dot([check], {
        ...look,
        symbol: symbols[check.judged],
        rotate: check.judged === 'less' ? 180 : 0,
        fill,
      });
    }),
  ];
}

function clipped(title: string, room: number): string {
  const letters = Math.floor(room / letterWidth) + 2;
  return title.length <= letters ? title : `${title.slice(0, letters - 1)}\u2026`;
}
