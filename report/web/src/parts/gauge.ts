import { el } from '../dom/el';
import { limitGauge } from '../plots/gauge';
import { SelectionStore } from '../state/selection';
import { ruleOf, type Limit } from '../text/limits';

const width = 116;
const none = new SelectionStore();

/** How near a value comes to its limit; in a table the numbers stand beside it. */
export function gauge(limit: Limit): HTMLElement {
  const rule = ruleOf(limit.text);
  if (!rule) return el('span');
  const value = limit.value !== null && rule.absolute ? Math.abs(limit.value) : limit.value;
  const sense = rule.operator.startsWith('<') ? 'at most' : 'at least';
  const view = { value, limit: rule.bound, sense, holds: limit.holds, low: null, high: null } as const;
  const context = { width, selection: none, signal: new AbortController().signal, printing: false };
  return el('div', { class: 'gauge' }, limitGauge(view, context));
}
