import type { CheckPair, CheckView, PairDetails } from '../page_data';
import type { Explanations, Source } from '../text/figures';
import { hashOf } from '../state/route';

/** What a section of the page is drawn from: one check, seen from the library's or the refined centres. */
export interface Scope {
  check: CheckView;
  /** From 0. */
  number: number;
  source: Source;
  explanations: Explanations;
  /** Where a pair's own view is to be had. */
  go(pair: number): void;
  /** Ends with the section. */
  end: AbortSignal;
}

export interface PairScope extends Scope {
  pair: CheckPair;
  details: PairDetails | null;
}

export function pairLink(scope: { number: number }, pair: number): string {
  return hashOf({ check: scope.number, pair });
}

/** Some pair has figures from refined centres. */
export function hasRefined(check: CheckView): boolean {
  return check.document.pairs.some(({ refined }) =>
    Object.values(refined?.figures ?? {}).some((value) =>
      Array.isArray(value) ? value.some(isThere) : isThere(value),
    ),
  );
}

const isThere = (value: number | null): boolean => value !== null;

/** Of a pair, by its index in the list of pictures. */
export function positionOf(check: CheckView, pair: number): number {
  return check.document.pairs.findIndex(({ index }) => index === pair);
}
