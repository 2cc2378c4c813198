import { plain, unitText } from './numbers';

/** A level on both sides of zero: a limit that judges the dots, or the bound by which a figure counts them. */
export interface Bound {
  value: number;
  /** "limit", "bound of dy_ratio". */
  word: string;
  judges: boolean;
}

export const boundColour = ({ judges }: Bound): string => (judges ? 'var(--over)' : 'var(--faint)');

export function boundText({ word, value }: Bound, unit: string): string {
  return `${word} \u00b1${plain(value)} ${unitText(unit)}`;
}

/** The one by which dots are told apart: nobody's cameras fail by a bound that only counts. */
export function strictest(bounds: readonly Bound[]): number | null {
  const limits = bounds.filter(({ judges }) => judges).map(({ value }) => value);
  return limits.length === 0 ? null : Math.min(...limits);
}
