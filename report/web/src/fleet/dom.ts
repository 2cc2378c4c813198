import { el } from '../dom/el';
import type { Cell } from '../dom/table';
import { shown } from '../text/number';
import type { Interval, Share } from './statistics/proportion';

/** A number with what lets a program compare it: its name, of what it is ("" of all that is seen), its exact value. */
export function told(figure: string, of: string, value: number | null, text = numberText(value)): HTMLElement {
  const exact = { 'data-figure': figure, 'data-of': of, 'data-value': String(value) };
  return el('span', { class: 'value', ...exact, title: value === null ? null : String(value) }, text);
}

export function numberText(value: number | null): string {
  return value === null ? '–' : shown(value);
}

/** "98.4 %"; near the ends with a digit more. */
export function percentText(share: number): string {
  const size = Math.abs(share) * 100;
  const digits = size === 0 || size === 100 ? 0 : (size > 99 && size < 100) || size < 1 ? 2 : 1;
  return `${share < 0 ? '\u2212' : ''}${size.toFixed(digits)}\u00a0%`;
}

/** Digits behind the point in which the ends of an interval differ. */
function digitsOf({ low, high }: Interval): number {
  return Math.min(2, Math.max(0, 1 - Math.floor(Math.log10(100 * (high - low) || 1))));
}

function fixedPercent(share: number, digits: number): string {
  return `${share < 0 ? '\u2212' : ''}${Math.abs(100 * share).toFixed(digits)}`;
}

/** "95.1 to 98.9 %" */
export function rangeText(interval: Interval): string {
  const digits = digitsOf(interval);
  return `${fixedPercent(interval.low, digits)} to ${fixedPercent(interval.high, digits)}\u00a0%`;
}

/** Thousands apart, as sets are counted. */
export function countText(count: number): string {
  return String(count).replace(/\B(?=(\d{3})+$)/g, '\u202f');
}

export function toldCount(figure: string, of: string, count: number): HTMLElement {
  return told(figure, of, count, countText(count));
}

/** The ends of a share's interval, with the digits in which they differ. */
export function toldRange(figure: string, of: string, share: Share): HTMLElement {
  const digits = digitsOf(share);
  const end = (name: 'low' | 'high') =>
    told(`${figure}.${name}`, of, share[name], `${fixedPercent(share[name], digits)}\u00a0%`);
  return el('span', {}, end('low'), ' to ', end('high'));
}

/** A share with its interval in small. */
export function toldShare(figure: string, of: string, share: Share | null): HTMLElement {
  if (!share) return el('span', { class: 'faint' }, '–');
  const value = told(figure, of, share.share, percentText(share.share));
  return el('span', {}, value, ' ', el('small', {}, toldRange(figure, of, share)));
}

export function cell(content: Node | string, value: string | number | null): Cell {
  return { content: typeof content === 'string' ? document.createTextNode(content) : content, value };
}
