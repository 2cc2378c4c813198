/** Logarithm of the gamma function (Lanczos, 1964; coefficients for g = 7), to fifteen digits for x > 0. */
export function logGamma(x: number): number {
  const terms = [
    0.99999999999980993, 676.5203681218851, -1259.1392167224028, 771.32342877765313, -176.61502916214059,
    12.507343278686905, -0.13857109526572012, 9.9843695780195716e-6, 1.5056327351493116e-7,
  ];
  const base = x + 6.5;
  const sum = terms.reduce((total, term, k) => total + (k === 0 ? term : term / (x - 1 + k)), 0);
  return 0.5 * Math.log(2 * Math.PI) + (x - 0.5) * Math.log(base) - base + Math.log(sum);
}

/** Part of the gamma distribution of shape `a` below x: a series below the middle, a continued fraction above it. */
export function gammaBelow(a: number, x: number): number {
  if (x <= 0) return 0;
  const scale = Math.exp(a * Math.log(x) - x - logGamma(a));
  if (x < a + 1) {
    let term = 1 / a;
    let sum = term;
    for (let k = 1; k < 100_000 && term > sum * 1e-16; k++) sum += term *= x / (a + k);
    return sum * scale;
  }
  // Lentz (1976).
  let b = x + 1 - a;
  let c = 1e300;
  let d = 1 / b;
  let fraction = d;
  for (let k = 1; k < 100_000; k++) {
    const step = -k * (k - a);
    b += 2;
    d = 1 / (step * d + b);
    c = b + step / c;
    fraction *= d * c;
    if (Math.abs(d * c - 1) < 1e-15) break;
  }
  return 1 - scale * fraction;
}

/** The value below which the part `p` of a chi-square distribution lies. */
export function chiSquareQuantile(p: number, freedom: number): number {
  let low = 0;
  let high = freedom + 10 * Math.sqrt(2 * freedom) + 40;
  for (let k = 0; k < 80; k++) {
    const middle = (low + high) / 2;
    if (gammaBelow(freedom / 2, middle / 2) < p) low = middle;
    else high = middle;
  }
  return (low + high) / 2;
}
