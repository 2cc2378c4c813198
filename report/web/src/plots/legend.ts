import { colourOf, edgeText, roundOf, type Classes } from './classes';
import { fontSize, letterWidth } from './base';
import { circlePath, squarePath, svg } from './svg';

/** Height that a legend takes below the axis. */
export const legendHeight = 42;

function words(x: number, y: number, content: string, anchor = 'start'): SVGTextElement {
  return svg('text', { x, y, fill: 'var(--faint)', 'font-size': fontSize, 'text-anchor': anchor }, content);
}

/** The classes of a map with their borders; shapes as in the map. */
export function classLegend(classes: Classes, unit: string, x: number, y: number, width: number): SVGGElement {
  const group = svg('g', { class: 'plot-legend' });
  const count = classes.edges.length + 1;
  const texts = classes.edges.map((edge) => edgeText(edge, classes));
  const unitWidth = unit ? letterWidth * (unit.length + 1) : 0;
  const step = Math.min(46, (width - unitWidth) / count);
  for (let place = 0; place < count; place++) {
    const shape = roundOf(place, classes) ? circlePath : squarePath;
    group.append(svg('path', { d: shape(x + step * (place + 0.5), y + 8, 7), fill: colourOf(place, classes) }));
  }
  const widest = Math.max(...texts.map((text) => text.length)) * letterWidth + 4;
  const every = Math.min(classes.signed ? 4 : 6, Math.ceil(widest / step));
  texts.forEach((text, i) => {
    const at = x + step * (i + 1);
    group.append(svg('path', { d: `M${at} ${y + 1}v16`, stroke: 'var(--line)' }));
    const fromZero = !classes.signed ? i + 1 : i < 4 ? 4 - i : i - 3;
    if (fromZero % every === 0) group.append(words(at, y + 30, text, 'middle'));
  });
  if (unit) group.append(words(x + step * count + 6, y + 12, unit));
  return group;
}

export interface Key {
  /** Drawn around (0, 0). */
  sign: SVGElement;
  /** 16 where nothing is said. */
  wide?: number;
  text: string;
}

/** Place of each sign with its words, side by side and wrapped. */
function keyPlaces(keys: readonly Key[], width: number): { left: number; row: number }[] {
  let left = 0;
  let row = 0;
  return keys.map(({ text, wide = 16 }) => {
    const needed = wide + 8 + letterWidth * text.length;
    if (left > 0 && left + needed > width) {
      left = 0;
      row++;
    }
    const place = { left, row };
    left += needed + 10;
    return place;
  });
}

const rowHeight = 18;

export function keyLegendHeight(keys: readonly Key[], width: number): number {
  return 4 + rowHeight * (1 + Math.max(0, ...keyPlaces(keys, width).map(({ row }) => row)));
}

export function keyLegend(keys: readonly Key[], x: number, y: number, width: number): SVGGElement {
  const group = svg('g', { class: 'plot-legend' });
  const places = keyPlaces(keys, width);
  keys.forEach(({ sign, text, wide = 16 }, i) => {
    const { left, row } = places[i] ?? { left: 0, row: 0 };
    const top = y + rowHeight * row;
    const at = { transform: `translate(${x + left + wide / 2} ${top + 8})` };
    group.append(svg('g', at, sign), words(x + left + wide + 6, top + 12, text));
  });
  return group;
}
