/** Standard deviations of the normal distribution that hold 95 %. */
export const z95 = 1.959963984540054;

export interface Interval {
  low: number;
  high: number;
}

export interface Share extends Interval {
  count: number;
  of: number;
  share: number;
}

/** A share with its interval (Wilson, 1927): right for few and for shares near 0 and 1, too. null of nothing. */
export function wilson(count: number, of: number, z = z95): Share | null {
  if (of <= 0) return null;
  const share = count / of;
  const square = (z * z) / of;
  const middle = (share + square / 2) / (1 + square);
  const half = (z / (1 + square)) * Math.sqrt((share * (1 - share)) / of + square / (4 * of));
  // What rounding would put beyond the end is the end.
  const low = count === 0 ? 0 : Math.max(0, middle - half);
  const high = count === of ? 1 : Math.min(1, middle + half);
  return { count, of, share, low, high };
}

export interface ShareDifference extends Interval {
  value: number;
}

/** First less second share with its interval, of the intervals of both (Newcombe, 1998, method 10). */
export function shareDifference(a: Share, b: Share): ShareDifference {
  const value = a.share - b.share;
  return {
    value,
    low: value - Math.hypot(a.share - a.low, b.high - b.share),
    high: value + Math.hypot(a.high - a.share, b.share - b.low),
  };
}
