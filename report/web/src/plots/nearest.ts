import type { Numbers } from './numbers';

/** Places of the dots in a drawing, by index; NaN where a dot is not drawn. */
export interface Places {
  x: Float64Array;
  y: Float64Array;
}

/** Puts the columns through the drawing's scales. */
export function placesOf(xs: Numbers, ys: Numbers, x: (v: number) => number, y: (v: number) => number): Places {
  const at = (values: Numbers, scale: (v: number) => number) =>
    Float64Array.from(values, (value) => (value === null ? NaN : scale(value)));
  return { x: at(xs, x), y: at(ys, y) };
}

/** Finds dots by place, so that no dot needs a node with listeners. Looking at five thousand takes a tenth of a
 * millisecond; anything cleverer would only make the page larger. */
export class NearestDot {
  private readonly drawn: number[];

  constructor(private readonly places: Places) {
    this.drawn = Array.from(places.x.keys()).filter((i) => !Number.isNaN((places.x[i] ?? NaN) + (places.y[i] ?? NaN)));
  }

  /** Index of the dot next to the place, none where all are further than `within`. */
  find(x: number, y: number, within: number): number | null {
    let best: number | null = null;
    let least = within * within;
    for (const i of this.drawn) {
      const dx = (this.places.x[i] ?? NaN) - x;
      const dy = (this.places.y[i] ?? NaN) - y;
      const far = dx * dx + dy * dy;
      if (far <= least) {
        least = far;
        best = i;
      }
    }
    return best;
  }

  /** The next dot in a direction, as an arrow key means it: no more to the side than ahead. */
  towards(from: number, dx: number, dy: number): number | null {
    const x0 = this.places.x[from] ?? NaN;
    const y0 = this.places.y[from] ?? NaN;
    let best: number | null = null;
    let least = Infinity;
    for (const i of this.drawn) {
      const x = (this.places.x[i] ?? NaN) - x0;
      const y = (this.places.y[i] ?? NaN) - y0;
      const ahead = x * dx + y * dy;
      const aside = Math.abs(x * dy - y * dx);
      const far = ahead + 2 * aside;
      if (ahead > 0.01 && aside <= ahead && far < least) {
        least = far;
        best = i;
      }
    }
    return best;
  }

  /** The first dot in reading order of the drawing, where the keyboard begins. */
  first(): number | null {
    let best: number | null = null;
    const far = (i: number) => (this.places.x[i] ?? NaN) + (this.places.y[i] ?? NaN);
    for (const i of this.drawn) if (best === null || far(i) < far(best)) best = i;
    return best;
  }

  /** Indices of the dots in the rectangle. */
  within(x1: number, y1: number, x2: number, y2: number): number[] {
    const [left, right] = [Math.min(x1, x2), Math.max(x1, x2)];
    const [top, bottom] = [Math.min(y1, y2), Math.max(y1, y2)];
    return this.drawn.filter((i) => {
      const x = this.places.x[i] ?? NaN;
      const y = this.places.y[i] ?? NaN;
      return x >= left && x <= right && y >= top && y <= bottom;
    });
  }
}
