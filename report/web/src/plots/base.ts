import * as Plot from '@observablehq/plot';
import { withoutLabels } from './plot';
import { fixed, ticksOf } from './numbers';
import type { Box } from './svg';

/** Size of the writing in a plot, CSS pixels, and the room that one of its letters takes at the most. */
export const fontSize = 12;
export const letterWidth = 6.9;

export interface Axis {
  from: number;
  to: number;
  label: string;
  /** Ticks at these places only. */
  ticks?: number[];
  /** Counted in whole numbers. */
  whole?: boolean;
  /** Written with its sign, where a value is a difference. */
  plus?: boolean;
  /** Writes a tick that is no plain number, as a date. */
  write?: (value: number) => string;
}

export interface Frame {
  width: number;
  height: number;
  x: Axis;
  y: Axis;
  /** Room below the axis for a legend. */
  below?: number;
  /** Lines behind the data: along the ticks of the upright axis, of both, or none. */
  grid?: 'y' | 'both' | 'none';
  marks: Plot.Markish[];
}

interface Margins {
  left: number;
  right: number;
  top: number;
  bottom: number;
}

/** The box in which the data are drawn. */
export function boxOf(plot: { width: number; height: number }, margins: Margins): Box {
  return {
    x: margins.left,
    y: margins.top,
    width: plot.width - margins.left - margins.right,
    height: plot.height - margins.top - margins.bottom,
  };
}

function tickTexts(axis: Axis, count: number): { values: number[]; text: (value: number) => string } {
  const { values, decimals } = ticksOf(
    Math.min(axis.from, axis.to),
    Math.max(axis.from, axis.to),
    count,
    axis.whole ? 1 : 0,
  );
  const counted = axis.whole ? values.filter(Number.isInteger) : values;
  const number = (value: number) => fixed(value, axis.ticks || axis.whole ? 0 : decimals, axis.plus);
  const text = axis.write ?? number;
  return { values: axis.ticks ?? counted, text };
}

/** As many ticks as have room side by side. */
function fittingTicks(axis: Axis, width: number): ReturnType<typeof tickTexts> {
  for (let count = Math.max(1, Math.floor(width / 55)); ; count--) {
    const ticks = tickTexts(axis, count);
    const widest = Math.max(1, ...ticks.values.map((value) => ticks.text(value).length)) * letterWidth + 10;
    if (count <= 1 || axis.ticks || (ticks.values.length - 1) * widest <= width) return ticks;
  }
}

/** Room for the longest tick of the upright axis. */
function leftMargin(texts: string[]): number {
  return Math.ceil(12 + letterWidth * Math.max(2, ...texts.map((text) => text.length)));
}

export interface FramedPlot {
  svg: SVGSVGElement;
  box: Box;
  x: (value: number) => number;
  y: (value: number) => number;
}

/** A plot with two numbered axes, labels in words, as all of ours look. */
export function framed(frame: Frame): FramedPlot {
  const yTicks = tickTexts(frame.y, Math.max(2, frame.height / 45));
  const left = leftMargin(yTicks.values.map(yTicks.text));
  const xTicks = fittingTicks(frame.x, frame.width - left - 20);
  const margins = { left, right: 20, top: frame.y.label ? 26 : 10, bottom: 40 + (frame.below ?? 0) };
  const box = boxOf(frame, margins);
  const style = { color: 'var(--faint)', fontSize, labelArrow: 'none' as const };
  const svg = plotted({
    width: frame.width,
    height: frame.height,
    marginLeft: margins.left,
    marginRight: margins.right,
    marginTop: margins.top,
    marginBottom: margins.bottom,
    x: { domain: [frame.x.from, frame.x.to], label: null },
    y: { domain: [frame.y.from, frame.y.to], label: null },
    marks: [
      frame.grid === 'none' ? null : Plot.gridY(yTicks.values, { stroke: 'var(--grid)', strokeOpacity: 1 }),
      frame.grid === 'both' ? Plot.gridX(xTicks.values, { stroke: 'var(--grid)', strokeOpacity: 1 }) : null,
      ...frame.marks,
      Plot.axisX(xTicks.values, { ...style, tickFormat: xTicks.text, label: null, tickSize: 4, tickPadding: 4 }),
      Plot.axisY(yTicks.values, { ...style, tickFormat: yTicks.text, label: null, tickSize: 0, tickPadding: 6 }),
      ...axisLabels(frame, box),
    ],
  });
  const across = (value: number) => box.x + ((value - frame.x.from) / (frame.x.to - frame.x.from)) * box.width;
  const down = (value: number) => box.y + (1 - (value - frame.y.from) / (frame.y.to - frame.y.from)) * box.height;
  return { svg, box, x: across, y: down };
}

/** The upright axis is named above it, where the words need no turned head; the other one below its ticks. */
function axisLabels(frame: Frame, box: Box): Plot.Markish[] {
  const style = { fontSize, fill: 'var(--faint)' };
  return [
    frame.y.label
      ? Plot.text([frame.y.label], { ...style, frameAnchor: 'top-left', dx: -box.x + 4, dy: -18, lineAnchor: 'middle' })
      : null,
    Plot.text([frame.x.label], { ...style, frameAnchor: 'bottom', dy: 32, lineAnchor: 'middle' }),
  ];
}

/** Plot's drawing in our writing, without the labels that it puts on groups. */
export function plotted(options: Plot.PlotOptions): SVGSVGElement {
  const made = Plot.plot({
    ...options,
    style: { fontFamily: 'inherit', fontSize: `${fontSize}px`, background: 'transparent', color: 'var(--text)' },
  });
  made.setAttribute('aria-hidden', 'true');
  const drawing = withoutLabels(made as SVGSVGElement);
  drawing.setAttribute('aria-hidden', 'true');
  return drawing;
}
