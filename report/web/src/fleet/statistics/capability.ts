import { chiSquareQuantile } from './chi_square';
import type { Moments } from './moments';
import { z95, type Interval } from './proportion';

export interface Index extends Interval {
  value: number;
}

export interface Capability {
  /** Only with bounds on both sides. */
  cp: Index | null;
  /** null without a bound, and where the standard deviation is not known. */
  cpk: Index | null;
}

/** Cp's interval is that of the standard deviation, by the chi-square distribution. */
function cpOf({ n, sd }: Moments, width: number): Index {
  const value = width / (6 * sd);
  const bound = (p: number) => value * Math.sqrt(chiSquareQuantile(p, n - 1) / (n - 1));
  return { value, low: bound(0.025), high: bound(0.975) };
}

/**
 * How well what is made stays within its bounds, in units of three standard deviations of all sets, with 95 % intervals
 * (of Cpk: Bissell, 1990). Rests on values that are about normal.
 */
export function capability(moments: Moments, lower: number | null, upper: number | null): Capability {
  const { n, mean, sd } = moments;
  if (n < 2 || !(sd > 0)) return { cp: null, cpk: null };
  const sides = [
    ...(upper === null ? [] : [(upper - mean) / (3 * sd)]),
    ...(lower === null ? [] : [(mean - lower) / (3 * sd)]),
  ];
  const cp = upper !== null && lower !== null ? cpOf(moments, upper - lower) : null;
  if (sides.length === 0) return { cp, cpk: null };
  const value = Math.min(...sides);
  const half = z95 * Math.sqrt(1 / (9 * n) + value ** 2 / (2 * (n - 1)));
  return { cp, cpk: { value, low: value - half, high: value + half } };
}
