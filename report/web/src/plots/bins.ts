import { niceStep, type Numbers } from './numbers';

/** Bars of equal width with the dots in each. */
export interface Bins {
  from: number;
  to: number;
  step: number;
  /** Indices of the dots by bar. */
  dots: number[][];
}

/** About `count` bars with round borders, so that a bar can be told in words. */
export function binsOf(values: Numbers, from: number, to: number, count: number): Bins {
  const step = niceStep((to - from) / count);
  const first = Math.floor(from / step + 1e-9);
  const bars = Math.max(1, Math.ceil(to / step - 1e-9) - first);
  const dots: number[][] = Array.from({ length: bars }, () => []);
  values.forEach((value, i) => {
    if (value === null || !Number.isFinite(value)) return;
    const place = Math.min(bars - 1, Math.max(0, Math.floor(value / step - first)));
    dots[place]?.push(i);
  });
  return { from: first * step, to: (first + bars) * step, step, dots };
}
