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
  /** Drawn around (0, 0), 16 wide. */
  sign: SVGElement;
  text: string;
}

/** Signs with words, side by side and wrapped. Gives the group and the height that it took. */
export function keyLegend(keys: Key[], x: number, y: number, width: number): { group: SVGGElement; height: number } {
  const group = svg('g', { class: 'plot-legend' });
  let left = x;
  let top = y;
  for (const { sign, text } of keys) {
    const needed = 24 + letterWidth * text.length;
    if (left > x && left + needed > x + width) {
      left = x;
      top += 18;
    }
    group.append(svg('g', { transform: `translate(${left + 8} ${top + 8})` }, sign), words(left + 22, top + 12, text));
    left += needed + 10;
  }
  return { group, height: top - y + 18 };
}
