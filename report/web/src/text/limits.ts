import type { CheckDocument } from '../page_data';

export type Limit = CheckDocument['limits'][number];

export interface LimitRule {
  /** Without bars and without `refined.` and `summary.…` around it. */
  figure: string;
  operator: string;
  bound: number;
  refined: boolean;
  absolute: boolean;
  /** Judges every pair; not the run as a whole. */
  ofPairs: boolean;
}

/** What the text of a limit says, as far as a drawing needs it; null for one that is not understood. */
export function ruleOf(text: string): LimitRule | null {
  const found = /^\s*(\|?)\s*([\w.[\]]+)\s*\|?\s*(<=|>=|<|>)\s*([-+.\deE]+)\s*$/.exec(text);
  const [, bar, name, operator, number] = found ?? [];
  const bound = Number(number);
  if (!name || !operator || !Number.isFinite(bound)) return null;
  const summary = /^summary\./.test(name) || ['finished', 'given_up', 'pairs'].includes(name);
  return {
    figure: name
      .replace(/^summary\./, '')
      .replace(/^refined\./, '')
      .replace(/\.(mean|sd|min|max)$/, ''),
    operator,
    bound,
    refined: name.includes('refined.'),
    absolute: bar === '|',
    ofPairs: !summary,
  };
}

export function exceeds(rule: LimitRule, value: number): boolean {
  const v = rule.absolute ? Math.abs(value) : value;
  if (rule.operator === '<=') return !(v <= rule.bound);
  if (rule.operator === '<') return !(v < rule.bound);
  if (rule.operator === '>=') return !(v >= rule.bound);
  return !(v > rule.bound);
}

/** The limits on a figure of each pair, or on the entries of its list. */
export function rulesOn(limits: Limit[], name: string, source: string): LimitRule[] {
  const bare = name.replace(/\[\d+\]$/, '');
  return limits
    .map(({ text }) => ruleOf(text))
    .filter((rule): rule is LimitRule => rule !== null && rule.ofPairs)
    .filter((rule) => rule.refined === (source === 'refined') && (rule.figure === name || rule.figure === bare));
}
