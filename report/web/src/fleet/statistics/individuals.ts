/** Limits of a chart of individuals and of their moving ranges, each of two neighbours. */
export interface Individuals {
  centre: number;
  /** Of the points, from the mean moving range. */
  sigma: number;
  low: number;
  high: number;
  /** One less than there are points. */
  ranges: number[];
  meanRange: number;
  rangeHigh: number;
}

/** For two neighbours: mean range over standard deviation, and the factors of the limits (Shewhart, 1931). */
const d2 = 1.128;
const limitFactor = 2.66;
const rangeFactor = 3.267;

/** null with fewer than two points. */
export function individuals(values: readonly number[]): Individuals | null {
  if (values.length < 2) return null;
  const centre = values.reduce((sum, value) => sum + value, 0) / values.length;
  const ranges = values.slice(1).map((value, k) => Math.abs(value - values[k]!));
  const meanRange = ranges.reduce((sum, range) => sum + range, 0) / ranges.length;
  return {
    centre,
    sigma: meanRange / d2,
    low: centre - limitFactor * meanRange,
    high: centre + limitFactor * meanRange,
    ranges,
    meanRange,
    rangeHigh: rangeFactor * meanRange,
  };
}
