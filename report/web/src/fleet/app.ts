import { el } from '../dom/el';
import { drawnForPaper } from '../dom/paper';
import { say } from '../dom/say';
import { countText } from './dom';
import type { FleetPageData } from './fleet_data';
import { bar } from './parts/bar';
import { causes } from './parts/causes';
import { chartSection } from './parts/charts';
import { figures } from './parts/figures';
import { filters, type Filters } from './parts/filters';
import { made } from './parts/made';
import type { Scope } from './parts/scope';
import { tallies } from './parts/tallies';
import { verdict } from './parts/verdict';
import { worst } from './parts/worst';
import { yields } from './parts/yields';
import { counted } from './view/counts';
import { hashOf, placeOf, type Place } from './view/filter';
import { viewOf, type FleetView } from './view/view';

/** The fleet's page: what stands in the address is shown, and what is chosen goes into the address. */
export class FleetApp {
  private end = new AbortController();
  private chartEnd = new AbortController();
  private view: FleetView | null = null;
  private readonly body = el('div');
  private readonly chartPlace = el('div');
  private readonly main: HTMLElement;
  private readonly filters: Filters;

  constructor(
    private readonly data: FleetPageData,
    root: HTMLElement,
  ) {
    this.filters = filters(data.fleet, (filter) => this.go({ filter }));
    this.main = el('main', {}, this.filters.element, this.body);
    root.append(el('div', { class: 'bar-place' }, bar(data.fleet)), this.main);
  }

  start(): void {
    this.follow();
    addEventListener('hashchange', () => this.follow());
    drawnForPaper(this.main);
  }

  private place(): Place {
    return placeOf(location.hash, this.data.fleet);
  }

  private go(change: Partial<Place>): void {
    location.hash = this.link(change);
  }

  private link(change: Partial<Place>): string {
    return hashOf({ ...this.place(), ...change }, this.data.fleet);
  }

  /** Draws anew what the address changes: all for another filter, the charts for others of these. */
  private follow(): void {
    const { dataset } = document.documentElement;
    delete dataset['ready'];
    const place = this.place();
    const first = this.view === null;
    const same = this.view !== null && String(this.view.filter) === String(place.filter);
    // Who chooses beside the charts stands there already, and who filters stands above.
    const asked = place.course !== null && (first || same) && !this.chartPlace.contains(document.activeElement);
    if (same && this.view) this.drawCharts(this.view, place);
    else this.drawAll(place);
    requestAnimationFrame(() => {
      if (asked)
        document
          .getElementById('chart-title')
          ?.scrollIntoView({ block: 'start', behavior: first ? 'instant' : 'auto' });
      requestAnimationFrame(() => (dataset['ready'] = 'true'));
    });
  }

  private scope(view: FleetView, place: Place, end: AbortSignal): Scope {
    return { view, place, end, go: (change) => this.go(change), link: (change) => this.link(change) };
  }

  private drawAll(place: Place): void {
    const { fleet } = this.data;
    const again = this.view !== null;
    this.end.abort();
    this.end = new AbortController();
    this.view = viewOf(this.data, place.filter);
    const seen = counted(fleet.cells, this.view.rows).sets;
    const words = `${this.filterWords(place)}${countText(seen)} of ${countText(fleet.sets)} sets are shown`;
    this.filters.show(place.filter, words);
    if (again) say(words);
    const scope = this.scope(this.view, place, this.end.signal);
    if (this.view.last === null) {
      this.body.replaceChildren(verdict(scope), made(scope));
      return;
    }
    const parts = [
      verdict(scope),
      yields(scope),
      causes(scope),
      this.chartPlace,
      figures(scope),
      worst(scope),
      tallies(scope),
      made(scope),
    ];
    this.body.replaceChildren(...parts.filter((part) => part !== null));
    this.drawCharts(this.view, place);
  }

  /** Paper has no lists to choose from, and has to say what is left. */
  private filterWords({ filter }: Place): string {
    const words = this.data.fleet.keys.flatMap(({ key, values }, k) => {
      const value = filter[k] ?? null;
      return value === null ? [] : [`${key} ${values[value] ?? 'not said'}`];
    });
    return words.length === 0 ? '' : `${words.join(', ')}: `;
  }

  private drawCharts(view: FleetView, place: Place): void {
    this.chartEnd.abort();
    this.chartEnd = new AbortController();
    const held = this.chartPlace.contains(document.activeElement)
      ? document.activeElement?.getAttribute('data-focus')
      : null;
    const drawn = chartSection(this.scope(view, place, this.chartEnd.signal));
    this.chartPlace.replaceChildren(...(drawn ? [drawn] : []));
    if (held) this.chartPlace.querySelector<HTMLElement>(`[data-focus="${held}"]`)?.focus({ preventScroll: true });
  }
}
