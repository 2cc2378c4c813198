/** A place on the screen, in client coordinates. */
export interface ScreenPlace {
  x: number;
  y: number;
}

/** What of one pair's dots is pointed at, marked and brushed. All plots of a pair share one. */
export interface Selection {
  /** Dots that a click has marked, by id. */
  readonly marked: ReadonlySet<number>;
  /** The dot under the pointer or the keyboard's cursor. */
  readonly hovered: number | null;
  /** Dots inside a brush; null where nothing is brushed. An empty set is a brush that holds none. */
  readonly brushed: ReadonlySet<number> | null;
  /** `at` is where the tooltip stands: the middle of the dot in client coordinates. */
  hover(id: number | null, at?: ScreenPlace): void;
  toggle(id: number): void;
  brush(ids: Iterable<number> | null): void;
  clear(): void;
  /** Calls after every change until `signal` is aborted. */
  subscribe(listener: (selection: Selection) => void, signal: AbortSignal): void;
}

export class SelectionStore implements Selection {
  marked: ReadonlySet<number> = new Set();
  hovered: number | null = null;
  brushed: ReadonlySet<number> | null = null;
  /** Where the dot that is pointed at stands on the screen. */
  place: ScreenPlace | null = null;
  private readonly listeners = new Set<(selection: Selection) => void>();

  hover(id: number | null, at?: ScreenPlace): void {
    if (id === this.hovered && at?.x === this.place?.x && at?.y === this.place?.y) return;
    this.hovered = id;
    this.place = id === null ? null : (at ?? null);
    this.tell();
  }

  toggle(id: number): void {
    const marked = new Set(this.marked);
    if (!marked.delete(id)) marked.add(id);
    this.marked = marked;
    this.tell();
  }

  brush(ids: Iterable<number> | null): void {
    if (ids === null && this.brushed === null) return;
    this.brushed = ids === null ? null : new Set(ids);
    this.tell();
  }

  clear(): void {
    this.marked = new Set();
    this.hovered = null;
    this.place = null;
    this.brushed = null;
    this.tell();
  }

  subscribe(listener: (selection: Selection) => void, signal: AbortSignal): void {
    if (signal.aborted) return;
    this.listeners.add(listener);
    signal.addEventListener('abort', () => this.listeners.delete(listener), { once: true });
  }

  private tell(): void {
    for (const listener of this.listeners) listener(this);
  }
}
