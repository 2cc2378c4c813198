/** Makes an SVG element with attributes. Text goes in as text. */
export function svg<K extends keyof SVGElementTagNameMap>(
  tag: K,
  attributes: Record<string, string | number>,
  ...children: (Node | string)[]
): SVGElementTagNameMap[K] {
  const element = document.createElementNS('http://www.w3.org/2000/svg', tag);
  for (const [name, value] of Object.entries(attributes)) element.setAttribute(name, String(value));
  element.append(...children);
  return element;
}

/** Keeps writing legible that stands on lines or a picture. */
export const halo = { stroke: 'var(--card)', 'stroke-width': 3.5, 'stroke-linejoin': 'round', 'paint-order': 'stroke' };

export interface Box {
  x: number;
  y: number;
  width: number;
  height: number;
}

/** A part of the drawing with its own edge: what lies beyond is not drawn. It needs no id, as a clip path would. */
export function window(box: Box, ...children: Node[]): SVGSVGElement {
  const { x, y, width, height } = box;
  const viewBox = `${x} ${y} ${width} ${height}`;
  return svg('svg', { x, y, width, height, viewBox, overflow: 'hidden' }, ...children);
}

const tenth = (value: number) => Math.round(value * 10) / 10;

export function squarePath(x: number, y: number, r: number): string {
  return `M${tenth(x - r)} ${tenth(y - r)}h${tenth(2 * r)}v${tenth(2 * r)}h${tenth(-2 * r)}z`;
}

export function circlePath(x: number, y: number, r: number): string {
  const d = tenth(2 * r);
  const s = tenth(r);
  return `M${tenth(x - r)} ${tenth(y)}a${s} ${s} 0 1 0 ${d} 0a${s} ${s} 0 1 0 ${-d} 0z`;
}

/** An upright arrow from the place, down where `length` is above 0. */
export function arrowPath(x: number, y: number, length: number): string {
  const head = Math.sign(length) * Math.min(3, Math.abs(length) / 2.8);
  const wide = Math.abs(head);
  return `M${tenth(x)} ${tenth(y)}v${tenth(length)}m${tenth(-wide)} ${tenth(-head)}l${tenth(wide)} ${tenth(head)}l${tenth(wide)} ${tenth(-head)}`;
}

/**
 * Draws many dots with few nodes: one path for each run of dots, about a board row. A path a dot costs nodes, one
 * path for all is painted slowly.
 */
export function batched(
  indices: readonly number[],
  shape: (i: number) => string,
  attributes: Record<string, string | number>,
): SVGGElement {
  const group = svg('g', attributes);
  const run = 64;
  for (let start = 0; start < indices.length; start += run) {
    const d = indices
      .slice(start, start + run)
      .map(shape)
      .join('');
    if (d) group.append(svg('path', { d }));
  }
  return group;
}
