import { el } from './dom/el';
import { drawnForPaper } from './dom/paper';
import { say } from './dom/say';
import type { PageData } from './page_data';
import { comparison } from './parts/comparison';
import { coverage } from './parts/coverage';
import { header } from './parts/header';
import { measured } from './parts/measured';
import { pairSection } from './parts/pair';
import { pairsTable } from './parts/pairs_table';
import { positionOf, type Scope } from './parts/scope';
import { trends } from './parts/trends';
import { verdict } from './parts/verdict';
import { warnings } from './parts/warnings';
import { hashOf, missingWords, placeOf } from './state/route';
import { SelectionStore } from './state/selection';
import { Explanations, type Source } from './text/figures';

/** The page: what stands in the address is shown, and what is chosen goes into the address. */
export class App {
  private readonly explanations: Explanations;
  private check = -1;
  private pair: number | null = null;
  private source: Source = 'library';
  private checkEnd = new AbortController();
  private pairEnd = new AbortController();
  private selection = new SelectionStore();
  private markTrends: ((pair: number) => void) | null = null;
  private readonly bar = el('div', { class: 'bar-place' });
  /** Says so where the address asks for what is not there. */
  private readonly notice = el('div', { class: 'notice' });
  private readonly pairPlace = el('div');
  private readonly tablePlace = el('div');
  private readonly main = el('main');

  constructor(
    private readonly data: PageData,
    private readonly root: HTMLElement,
  ) {
    this.explanations = new Explanations(data.explanations);
    this.root.append(this.bar, this.main);
  }

  start(): void {
    this.follow();
    addEventListener('hashchange', () => this.follow());
    addEventListener('keydown', (event) => this.key(event));
    drawnForPaper(this.main);
  }

  /** Shows what the address says. Drawings are made when their places are known, which is before the next frame. */
  private follow(): void {
    const { dataset } = document.documentElement;
    delete dataset['ready'];
    const first = this.check < 0;
    const asked = this.show();
    requestAnimationFrame(() => {
      // Only now do the drawings above have their heights; at the start nobody is to watch the way there.
      if (asked) this.notice.scrollIntoView({ block: 'start', behavior: first ? 'instant' : 'auto' });
      requestAnimationFrame(() => (dataset['ready'] = 'true'));
    });
  }

  /** Says whether the address asks for a pair, or for what is not there. */
  private show(): boolean {
    const place = placeOf(location.hash);
    const check = Math.min(place.check, this.data.checks.length - 1);
    const view = this.data.checks[check];
    if (!view) return false;
    const first = view.first_pair === null ? null : (view.document.pairs[view.first_pair]?.index ?? null);
    const asked = place.pair !== null && positionOf(view, place.pair) >= 0 ? place.pair : null;
    const pair = asked ?? first;
    if (check !== this.check) {
      this.check = check;
      this.pair = pair;
      this.drawCheck();
    } else if (pair !== this.pair) {
      this.pair = pair;
      this.drawPair();
      say(`Pair ${pair}`);
    }
    const missing = missingWords(place, view.document.pairs, this.data.checks.length);
    this.notice.replaceChildren(...(missing === '' ? [] : [el('p', { class: 'note' }, missing)]));
    if (missing !== '') say(missing);
    return asked !== null || missing !== '';
  }

  private scope(end: AbortSignal): Scope {
    return {
      check: this.data.checks[this.check]!,
      number: this.check,
      source: this.source,
      explanations: this.explanations,
      go: (pair) => (location.hash = hashOf({ check: this.check, pair })),
      end,
    };
  }

  private drawCheck(): void {
    this.checkEnd.abort();
    this.checkEnd = new AbortController();
    const scope = this.scope(this.checkEnd.signal);
    const run = trends(scope);
    this.markTrends = run?.mark ?? null;
    this.bar.replaceChildren(header(this.data, this.check));
    this.tablePlace.replaceChildren(pairsTable(scope));
    const parts = [
      comparison(this.data, scope),
      verdict(scope),
      warnings(scope),
      run?.element,
      this.notice,
      this.pairPlace,
      coverage(scope),
      this.tablePlace,
      measured(scope, this.data),
    ];
    this.main.replaceChildren(...parts.filter((part) => part !== null && part !== undefined));
    this.drawPair();
  }

  private drawPair(): void {
    this.pairEnd.abort();
    this.pairEnd = new AbortController();
    this.selection = new SelectionStore();
    const scope = this.scope(this.pairEnd.signal);
    const position = this.pair === null ? -1 : positionOf(scope.check, this.pair);
    const pair = scope.check.document.pairs[position];
    if (!pair) {
      this.pairPlace.replaceChildren();
      return;
    }
    const details = scope.check.details[position] ?? null;
    const choose = (source: Source): void => this.chooseSource(source);
    const held = this.pairPlace.contains(document.activeElement) ? document.activeElement : null;
    this.pairPlace.replaceChildren(pairSection({ ...scope, pair, details }, this.selection, choose));
    if (held) this.focusAgain(held.getAttribute('data-focus'));
    this.markTrends?.(pair.index);
  }

  /** Who steps through the pairs by keyboard stays at what was pressed, although it was made anew. */
  private focusAgain(name: string | null): void {
    const places = [...this.pairPlace.querySelectorAll<HTMLElement>('[data-focus]')];
    (places.find((place) => place.dataset['focus'] === name) ?? places[0])?.focus({ preventScroll: true });
  }

  private chooseSource(source: Source): void {
    this.source = source;
    this.drawCheck();
    this.pairPlace.querySelector<HTMLElement>('[aria-pressed=true]')?.focus();
  }

  private key(event: KeyboardEvent): void {
    if (event.defaultPrevented || event.altKey || event.ctrlKey || event.metaKey) return;
    if (event.key === 'Escape') this.selection.clear();
    const by = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    const free = !(event.target as Element).closest?.('input,select,textarea,[role=group],.scroller,.plot-area');
    if (by === undefined || !free || this.pair === null) return;
    const view = this.data.checks[this.check]!;
    const other = view.document.pairs[positionOf(view, this.pair) + by];
    if (!other) return;
    event.preventDefault();
    location.hash = hashOf({ check: this.check, pair: other.index });
  }
}
