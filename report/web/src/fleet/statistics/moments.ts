export interface Moments {
  n: number;
  /** 0 of nothing. */
  mean: number;
  /** With n - 1 in the denominator; 0 where n is below 2. */
  sd: number;
}

/** Mean and standard deviation of all numbers of several lots together. */
export function pooled(lots: readonly Moments[]): Moments {
  let n = 0;
  let mean = 0;
  let squares = 0;
  for (const lot of lots) {
    if (lot.n <= 0) continue;
    const all = n + lot.n;
    const off = lot.mean - mean;
    squares += (lot.n - 1) * lot.sd ** 2 + (off * off * n * lot.n) / all;
    mean += (off * lot.n) / all;
    n = all;
  }
  return { n, mean, sd: n > 1 ? Math.sqrt(Math.max(0, squares) / (n - 1)) : 0 };
}
