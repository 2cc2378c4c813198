import { decimalsOf, fixed, niceStep, present, quantile, type Numbers } from './numbers';

/** Classes of values with a colour each. The outermost take all that lies beyond. */
export interface Classes {
  signed: boolean;
  /** Ascending borders between the classes: eight for nine signed classes, six for seven of magnitudes. */
  edges: number[];
  decimals: number;
  /** Of the first colour, from 0: thin lines are not drawn in the palest ones. */
  palest: number;
}

/** The largest value that a scale has to tell; a few stray dots may lie beyond it. */
export function scaleOf(values: Numbers): number {
  return quantile(present(values).map(Math.abs), 0.98);
}

/** Nine classes around 0, or seven from 0 on. Give the same `largest` for maps that are to be compared. */
export function classesFor(largest: number, signed: boolean): Classes {
  const step = niceStep(largest / (signed ? 4.5 : 6.5));
  const places = signed ? [-4, -3, -2, -1, 1, 2, 3, 4] : [1, 2, 3, 4, 5, 6];
  return { signed, edges: places.map((k) => Number((k * step).toPrecision(6))), decimals: decimalsOf(step), palest: 0 };
}

/** Place of the value's class, from 0. A border belongs to the class that is nearer to zero. */
export function classOf(value: number, { edges }: Classes): number {
  let place = 0;
  for (const edge of edges) {
    if (edge < 0 ? value >= edge : value > edge) place++;
  }
  return place;
}

/** Five classes of magnitudes for lines. */
export function lineClassesFor(largest: number): Classes {
  const step = niceStep(largest / 4.5);
  const edges = [1, 2, 3, 4].map((k) => Number((k * step).toPrecision(6)));
  return { signed: false, edges, decimals: decimalsOf(step), palest: 2 };
}

export function colourOf(place: number, { signed, palest }: Classes): string {
  return `var(--${signed ? 'signed' : 'magnitude'}-${place + 1 + palest})`;
}

/** How far the class is from the one around zero, 0 to 1. */
export function strengthOf(place: number, { signed, edges }: Classes): number {
  return signed ? Math.abs(place - edges.length / 2) / (edges.length / 2) : place / edges.length;
}

/** The shape tells the sign to who does not tell the colours apart: above zero and at it square, below round. */
export function roundOf(place: number, { signed, edges }: Classes): boolean {
  return signed && place < edges.length / 2;
}

export function edgeText(edge: number, { signed, decimals }: Classes): string {
  return fixed(edge, decimals, signed);
}

/** Indices of the dots in each class; dots without a value are in none. */
export function dotsByClass(values: Numbers, classes: Classes): number[][] {
  const lists: number[][] = Array.from({ length: classes.edges.length + 1 }, () => []);
  values.forEach((value, i) => {
    if (value !== null && Number.isFinite(value)) lists[classOf(value, classes)]?.push(i);
  });
  return lists;
}
