import type { FleetView } from '../view/view';
import type { Place } from '../view/filter';

/** What a section of the page is drawn from. */
export interface Scope {
  view: FleetView;
  place: Place;
  /** Shows another place: the address is what is shown. */
  go(place: Partial<Place>): void;
  link(place: Partial<Place>): string;
  /** Ends with the section. */
  end: AbortSignal;
}
