import type { Plot, PlotContext } from '../plots/plot';
import type { Selection } from '../state/selection';
import { typographic } from '../text/number';
import { el } from './el';
import { drawingName, saveSvg } from './save_svg';

export interface PlotFigure<View> {
  title: string;
  /** Tells the plot in words with its numbers. */
  sentence: string;
  /** How it is read. */
  help: string;
  plot: Plot<View>;
  view: View;
  selection: Selection;
  /** Switches above it. */
  controls?: HTMLElement[];
  /** Of the grid: 'wide' takes two columns, 'tall' two columns and two rows, 'full' all columns. */
  size?: 'wide' | 'tall' | 'full';
}

export interface DrawnFigure {
  element: HTMLElement;
  /** Draws once more with other data. */
  show(view: unknown, sentence?: string): void;
  /** Says something else of the same drawing. */
  tell(sentence: string): void;
}

const drawings = new Map<HTMLElement, Draw>();
const waiting = new Map<HTMLElement, Draw>();
let numbers = 0;

/** Draws with a width in CSS pixels. */
type Draw = (width: number) => void;

/** For paper and back. */
export function redrawAll(): void {
  drawMeasured(drawings);
}

/** All widths are read before anything is drawn: each drawing in between would have the whole page laid out anew. */
function drawMeasured(areas: ReadonlyMap<HTMLElement, Draw>): void {
  // What is folded away is drawn when it is unfolded, which its observer tells.
  const seen = [...areas].filter(([area]) => area.clientWidth > 0);
  const widths = seen.map(([area, draw]) => [draw, widthOf(area)] as const);
  for (const [draw, width] of widths) draw(width);
}

/** A figure's width is known when it stands in the page, which is when the present work is done. */
function drawSoon(area: HTMLElement, draw: Draw): void {
  if (waiting.size === 0) {
    queueMicrotask(() => {
      const all = new Map(waiting);
      waiting.clear();
      drawMeasured(all);
    });
  }
  waiting.set(area, draw);
}

export const printing = (): boolean => document.documentElement.classList.contains('printing');

function widthOf(area: HTMLElement): number {
  return Math.max(260, Math.floor(area.clientWidth));
}

/** A plot in its frame: heading, switches, drawing, its sentence and how it is read. Lives until `end` is aborted. */
export function plotFigure<View>(figure: PlotFigure<View>, end: AbortSignal): DrawnFigure {
  const id = `plot-${++numbers}`;
  const area = el('div', { class: 'plot-area', 'aria-labelledby': `${id}-title ${id}-sentence` });
  const caption = el('figcaption', { id: `${id}-sentence`, class: 'sentence' }, typographic(figure.sentence));
  let view = figure.view;
  let drawn = new AbortController();
  let width = 0;

  function draw(wide: number): void {
    if (end.aborted) return;
    drawn.abort();
    drawn = new AbortController();
    width = wide;
    const context: PlotContext = {
      width,
      selection: figure.selection,
      signal: drawn.signal,
      printing: printing(),
    };
    const plot = figure.plot(view, context);
    const focused = area.contains(document.activeElement);
    area.replaceChildren(plot);
    if (focused) area.querySelector<HTMLElement>('[tabindex]')?.focus({ preventScroll: true });
    // What holds things to press is a group; a picture would hide them from who listens.
    area.setAttribute('role', area.querySelector('[tabindex],button,input,select,a') ? 'group' : 'img');
  }

  const save = (): void =>
    saveSvg(drawingName(element, figure.title), [...area.querySelectorAll<SVGSVGElement>('svg')].filter(isDrawing));
  const element: HTMLElement = el(
    'figure',
    { class: `card plot ${figure.size ?? ''}` },
    el(
      'div',
      { class: 'plot-head' },
      el('h3', { id: `${id}-title` }, figure.title),
      el(
        'div',
        { class: 'controls' },
        ...(figure.controls ?? []),
        el(
          'button',
          {
            type: 'button',
            class: 'quiet no-print',
            click: save,
            title: 'Save as SVG',
            'aria-label': `SVG of ${figure.title}: save`,
          },
          'SVG',
        ),
      ),
    ),
    area,
    caption,
    el('details', { class: 'help' }, el('summary', {}, 'How to read this'), el('p', {}, figure.help)),
  );
  const observer = new ResizeObserver(() => {
    if (!printing() && Math.abs(widthOf(area) - width) > 4) drawSoon(area, draw);
  });
  observer.observe(area);
  drawings.set(area, draw);
  end.addEventListener('abort', () => {
    drawn.abort();
    observer.disconnect();
    drawings.delete(area);
    waiting.delete(area);
  });
  drawSoon(area, draw);
  const tell = (sentence: string): void => {
    caption.textContent = typographic(sentence);
  };
  return {
    element,
    show(next, sentence) {
      view = next as View;
      if (sentence !== undefined) tell(sentence);
      drawSoon(area, draw);
    },
    tell,
  };
}

function isDrawing(svg: SVGSVGElement): boolean {
  return !svg.classList.contains('icon') && !svg.parentElement?.closest('svg,button');
}
