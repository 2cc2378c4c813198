/** A number for the eye: four figures that count, the sign as a minus. The exact value stands in `data-value`. */
export function shown(value: number): string {
  const size = Math.abs(value);
  if (Number.isInteger(value) && size < 1e6) return minus(String(value));
  if (size >= 1e6 || size < 1e-6) return minus(value.toExponential(3));
  if (size < 1e-3) return minus(value.toFixed(3 - Math.floor(Math.log10(size))));
  return minus(size >= 1000 ? value.toFixed(1) : value.toPrecision(4));
}

export function signed(value: number): string {
  return value > 0 ? `+${shown(value)}` : shown(value);
}

/** An error, to two figures that count. */
export function error(sd: number): string {
  if (sd === 0) return '0';
  return sd >= 1e-6 && sd < 1e4 ? String(Number(sd.toPrecision(2))) : sd.toExponential(1);
}

/** A value to the last digit that its standard error leaves it; `plus` where it is a difference. */
export function withError(value: number, sd: number, plus = false): string {
  const sign = plus && value > 0 ? '+' : '';
  const last = sd > 0 ? Math.floor(Math.log10(sd)) - 1 : Number.NaN;
  if (!(last >= -9 && last < 5)) return `${sign}${shown(value)} ± ${error(sd)}`;
  const decimals = Math.max(0, -last);
  return minus(`${sign}${value.toFixed(decimals)} ± ${sd.toFixed(decimals)}`);
}

export function percent(part: number): string {
  const size = part * 100;
  const digits = Math.abs(size) < 10 && size !== 0 ? 1 : 0;
  return `${minus(size.toFixed(digits))} %`;
}

/** An interval, with the digits in which its ends differ. */
export function between(low: number, high: number): string {
  const digits = high > low ? 1 - Math.floor(Math.log10(high - low)) : Number.NaN;
  if (!(digits >= 1 && digits <= 9)) return `${shown(low)} to ${shown(high)}`;
  return minus(`${low.toFixed(digits)} to ${high.toFixed(digits)}`);
}

/** A sentence with the sign that the numbers beside it have. */
export function typographic(sentence: string): string {
  return sentence.replace(/(^|[\s(])-(?=\d)/g, '$1\u2212');
}

function minus(text: string): string {
  return text.replace(/-/g, '\u2212');
}
