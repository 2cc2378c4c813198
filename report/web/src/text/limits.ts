import type { CheckDocument, CheckPair } from '../page_data';
import { flattened, valueOf, type Source } from './figures';

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
  /** What of the pairs together: mean, sd, min, max; '' for one that judges every pair. */
  statistic: string;
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
    statistic: (/^summary\..*\.(mean|sd|min|max)$/.exec(name) ?? [])[1] ?? '',
  };
}

export function exceeds(rule: LimitRule, value: number): boolean {
  const v = rule.absolute ? Math.abs(value) : value;
  if (rule.operator === '<=') return !(v <= rule.bound);
  if (rule.operator === '<') return !(v < rule.bound);
  if (rule.operator === '>=') return !(v >= rule.bound);
  return !(v > rule.bound);
}

export const isUpper = ({ operator }: LimitRule): boolean => operator.startsWith('<');

export interface Broken {
  /** As a limit calls it: `tri_dis[0]`, `refined.dy_means`. */
  name: string;
  figure: string;
  source: Source;
  how: 'over' | 'below' | 'not measured';
}

/** Of a list without an entry each of its entries that breaks the rule. */
function brokenOf(rule: LimitRule, pair: CheckPair): Broken[] {
  const source = rule.refined ? 'refined' : 'library';
  const name = (figure: string): string => `${rule.refined ? 'refined.' : ''}${figure}`;
  const list = (rule.refined ? pair.refined?.figures : pair.figures)?.[rule.figure];
  const entries = Array.isArray(list)
    ? flattened({ [rule.figure]: list })
    : [{ name: rule.figure, value: valueOf(pair, source, rule.figure) }];
  const measured = entries.filter(({ value }) => value !== null);
  if (measured.length === 0)
    return [{ name: name(rule.figure), figure: rule.figure, source, how: 'not measured' as const }];
  return measured
    .filter(({ value }) => exceeds(rule, value as number))
    .map((entry) => ({
      name: name(entry.name),
      figure: entry.name,
      source,
      how: isUpper(rule) ? ('over' as const) : ('below' as const),
    }));
}

/** Every limit that a finished pair breaks, of the library's figures and of the refined ones. */
export function brokenBy(limits: Limit[], pair: CheckPair): Broken[] {
  if (pair.state !== 'finished') return [];
  const rules = limits.map(({ text }) => ruleOf(text)).filter((rule) => rule !== null && rule.ofPairs);
  const all = rules.flatMap((rule) => brokenOf(rule as LimitRule, pair));
  return all.filter(({ name, how }, at) => all.findIndex((other) => other.name === name && other.how === how) === at);
}

/** "over: dy_means, dy_max; below: tri_rms" */
export function brokenWords(broken: readonly Broken[]): string {
  const parts = (['over', 'below', 'not measured'] as const).map((how) => {
    const names = broken.filter((each) => each.how === how).map(({ name }) => name);
    return names.length === 0 ? '' : `${how}: ${names.join(', ')}`;
  });
  return parts.filter(Boolean).join('; ');
}

/** "over the limit", "below the limit": what a value beside it says to who listens. */
export function beyondWords(broken: readonly Broken[], figure: string, source: Source): string {
  const found = broken.filter(
    (each) => each.figure === figure && each.source === source && each.how !== 'not measured',
  );
  return found.length === 0 ? '' : `${found[0]?.how} the limit`;
}

/** The figures of a source that any limit judges in each pair, as they are named there. */
export function limitedFigures(limits: Limit[], source: Source): string[] {
  const rules = limits.map(({ text }) => ruleOf(text)).filter((rule): rule is LimitRule => rule !== null);
  const names = rules.filter((rule) => rule.ofPairs && rule.refined === (source === 'refined'));
  return [...new Set(names.map(({ figure }) => figure))];
}

/** The limits on a figure of each pair, or on the entries of its list. */
export function rulesOn(limits: Limit[], name: string, source: string): LimitRule[] {
  const bare = name.replace(/\[\d+\]$/, '');
  return limits
    .map(({ text }) => ruleOf(text))
    .filter((rule): rule is LimitRule => rule !== null && rule.ofPairs)
    .filter((rule) => rule.refined === (source === 'refined') && (rule.figure === name || rule.figure === bare));
}
